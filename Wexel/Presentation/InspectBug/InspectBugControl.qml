import QtQuick
import Wexel.Screens

// Leads to what will be sent.
Tappable {
    id: control

    name: label.text
    implicitHeight: 20 + Math.max(icon.height, label.implicitHeight) + 20

    Rule {
        width: parent.width * Theme.multiplierWidthWithoutSafeArea
        anchors.horizontalCenter: parent.horizontalCenter
    }
    Row {
        id: mainStack
        y: 20
        anchors.horizontalCenter: parent.horizontalCenter
        width: parent.width * Theme.multiplierWidthWithoutSafeArea
        spacing: 8
        opacity: control.pressed ? 0.5 : 1

        Artwork {
            id: icon
            anchors.verticalCenter: parent.verticalCenter
            width: Theme.scaled(20)
            height: width
            name: "path"
            tint: Theme.black
            rotation: control.LayoutMirroring.enabled ? 180 : 0
        }
        Label {
            id: label
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, mainStack.width - icon.width - mainStack.spacing)
            text: qsTranslate("Wexel", "Inspect bug")
            wrapMode: Text.Wrap
            font: Theme.fitting(Theme.semiBold(20), text, mainStack.width - icon.width - mainStack.spacing)
            color: Theme.black
        }
    }
    FocusFrame {
        control: control
        anchors.margins: 8
    }
}
