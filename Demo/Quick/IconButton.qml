import QtQuick
import QtQuick.Controls.Basic
import Cafe

/// A round button with an icon alone; `label` says what it does to those who can't see it.
RoundButton {
    id: button

    required property string iconName
    required property string label
    property bool filled: false

    implicitWidth: 40
    implicitHeight: 40
    padding: 0
    opacity: enabled ? 1 : 0.35
    icon.source: "Icons/" + iconName + ".svg"
    icon.width: 20
    icon.height: 20
    icon.color: filled ? "white" : Theme.ink
    Accessible.role: Accessible.Button
    Accessible.name: label
    Accessible.onPressAction: clicked()
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    background: Rectangle {
        radius: width / 2
        color: button.filled ? (button.down ? Theme.primaryPressed : Theme.primary)
                             : (button.down ? Theme.sunken : Theme.surface)
        border.width: button.filled ? 0 : 1
        border.color: Theme.line
    }

    FocusRing { visible: button.visualFocus; radius: width / 2 }
}
