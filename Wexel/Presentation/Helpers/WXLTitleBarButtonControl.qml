import QtQuick
import Wexel.Screens

// A word to tap in the bar.
Tappable {
    id: control

    property string title
    readonly property real offset: 6

    name: title
    implicitWidth: label.implicitWidth + 25 + 4
    implicitHeight: Math.max(44, label.implicitHeight + 2 * offset)

    Label {
        id: label
        anchors.right: parent.right
        anchors.rightMargin: 4
        anchors.verticalCenter: parent.verticalCenter
        anchors.verticalCenterOffset: control.offset
        text: control.title
        font: Theme.semiBold(16)
        color: Theme.white
        opacity: control.pressed ? 0.5 : 1

        FocusFrame {
            control: control
            anchors.leftMargin: -6
            anchors.rightMargin: -6
            border.color: Theme.white
        }
    }
}
