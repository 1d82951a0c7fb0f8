import QtQuick
import QtQuick.Controls.Basic
import Cafe

/// A wide push button: filled, or quiet with an outline.
Button {
    id: button

    property bool quiet: false

    implicitHeight: 48
    leftPadding: 20
    rightPadding: 20
    opacity: enabled ? 1 : 0.45
    font.pixelSize: Theme.bodySize
    font.bold: true
    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.onPressAction: clicked()
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    contentItem: Body {
        text: button.text
        font: button.font
        color: button.quiet ? Theme.primary : "white"
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }
    background: Rectangle {
        radius: Theme.radius - 2
        color: button.quiet ? (button.down ? Theme.primarySoft : Theme.surface)
                            : (button.down ? Theme.primaryPressed : Theme.primary)
        border.width: button.quiet ? 1 : 0
        border.color: Theme.line
        Behavior on color { ColorAnimation { duration: 90 } }
    }

    FocusRing { visible: button.visualFocus; radius: Theme.radius + 1 }
}
