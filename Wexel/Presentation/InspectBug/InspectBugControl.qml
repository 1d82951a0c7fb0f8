import QtQuick
import Wexel.Screens

// Leads to what will be sent.
Tappable {
    id: control

    name: label.text
    implicitHeight: 20 + Math.max(icon.height, label.implicitHeight) + 20

    Rule {
        width: parent.width * 13 / 15
        anchors.horizontalCenter: parent.horizontalCenter
    }
    Row {
        id: mainStack
        y: 20
        anchors.horizontalCenter: parent.horizontalCenter
        width: parent.width * 13 / 15
        spacing: 8
        opacity: control.pressed ? 0.5 : 1

        Artwork {
            id: icon
            anchors.verticalCenter: parent.verticalCenter
            width: 20
            height: 20
            name: "path"
            tint: Theme.black
            rotation: control.LayoutMirroring.enabled ? 180 : 0
        }
        Label {
            id: label
            anchors.verticalCenter: parent.verticalCenter
            text: qsTranslate("Wexel", "Inspect bug")
            font: Theme.semiBold(20)
            color: Theme.black
        }
    }
    FocusFrame {
        control: control
        anchors.margins: 8
    }
}
