import QtQuick
import Wexel.Screens

// One tool: its picture above its name.
Tappable {
    id: control

    property string title
    property string image
    property bool selected
    property color selectionColor

    name: title
    Accessible.checkable: true
    Accessible.checked: selected
    implicitWidth: stack.implicitWidth
    implicitHeight: stack.implicitHeight + stack.anchors.topMargin

    Column {
        id: stack
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.top: parent.top
        anchors.topMargin: 4
        spacing: 6
        opacity: control.pressed ? 0.5 : 1

        Artwork {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 28
            height: 28
            name: control.image
            tint: control.selected ? control.selectionColor : Theme.inactiveGrey
        }
        Text {
            anchors.horizontalCenter: parent.horizontalCenter
            text: control.title
            textFormat: Text.PlainText
            font: Theme.bold(10)
            color: control.selected ? control.selectionColor : Theme.coolGrey
        }
    }
    FocusFrame {
        control: control
        anchors.margins: -2
    }
}
