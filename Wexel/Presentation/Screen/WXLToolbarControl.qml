import QtQuick
import Wexel.Screens

// One tool: its picture above its name.
Tappable {
    id: control

    required property WXLToolbarContainerView container
    required property int tool
    required property string title
    required property string image
    readonly property real fit: Math.min(1, (width - 4) / natural.advanceWidth) // of its name, to its width
    property real commonFit: fit // of all the names: they are of one size
    readonly property bool selected: container.selectedTool === tool
    readonly property color selectionColor: container.selectionColor

    name: title
    onTapped: container.toolPressed(tool)
    Accessible.checkable: true
    Accessible.checked: selected
    width: container.width / 4
    implicitHeight: stack.implicitHeight + stack.anchors.topMargin

    TextMetrics {
        id: natural
        font: Theme.bold(10)
        text: control.title
    }
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
        Label {
            anchors.horizontalCenter: parent.horizontalCenter
            width: Math.min(implicitWidth, control.width - 4)
            fontSizeMode: Text.HorizontalFit
            horizontalAlignment: Text.AlignHCenter
            minimumPixelSize: 8
            text: control.title
            font: Theme.bold(10 * control.commonFit)
            color: control.selected ? control.selectionColor : Theme.coolGrey
        }
    }
    FocusFrame {
        control: control
        anchors.margins: -2
    }
}
