import QtQuick
import Wexel.Screens

// A picture to tap in the bar; most of what can be tapped lies to its right.
Tappable {
    id: control

    property string image
    readonly property real offset: 6
    readonly property real size: Theme.scaled(18)

    implicitWidth: 4 + size + 30
    implicitHeight: 44

    Artwork {
        anchors.left: parent.left
        anchors.leftMargin: 4
        anchors.verticalCenter: parent.verticalCenter
        anchors.verticalCenterOffset: control.offset
        width: control.size
        height: control.size
        name: control.image
        tint: Theme.white
        rotation: control.LayoutMirroring.enabled ? 180 : 0 // arrows point the other way
        opacity: control.pressed ? 0.5 : 1

        FocusFrame {
            control: control
            anchors.margins: -5
            border.color: Theme.white
        }
    }
}
