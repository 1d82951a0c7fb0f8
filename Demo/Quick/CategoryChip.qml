import QtQuick
import QtQuick.Controls.Basic
import Cafe

/// One of several choices, drawn as a pill.
AbstractButton {
    id: chip

    function choose(): void {
        checked = true;
        clicked();
    }

    implicitWidth: Math.max(48, implicitContentWidth + 30)
    implicitHeight: 38
    checkable: true
    autoExclusive: true
    Accessible.role: Accessible.RadioButton
    Accessible.name: text
    Accessible.checkable: true
    Accessible.checked: checked
    Accessible.onPressAction: choose()
    Keys.onReturnPressed: choose()

    contentItem: Body {
        text: chip.text
        font.pixelSize: 13
        font.bold: chip.checked
        color: chip.checked ? "white" : Theme.ink
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }
    background: Rectangle {
        radius: height / 2
        color: chip.checked ? Theme.primary : chip.down ? Theme.sunken : Theme.surface
        border.width: chip.checked ? 0 : 1
        border.color: Theme.line
        Behavior on color { ColorAnimation { duration: 120 } }
    }

    FocusRing { visible: chip.visualFocus; radius: height / 2 }
}
