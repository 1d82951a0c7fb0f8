import QtQuick
import QtQuick.Controls.Basic
import Cafe

/// One tab of the bar: an icon over its name, with a number on the icon when there is one to show.
Button {
    id: tab

    required property string iconName
    property bool selected: false
    property int badge: 0

    implicitHeight: Theme.barHeight
    display: AbstractButton.TextUnderIcon
    spacing: 4
    font.pixelSize: 11
    font.bold: selected
    icon.source: "Icons/" + iconName + ".svg"
    icon.width: 22
    icon.height: 22
    icon.color: selected ? Theme.primary : Theme.inkSoft
    palette.buttonText: selected ? Theme.primary : Theme.inkSoft
    Accessible.role: Accessible.PageTab
    Accessible.name: badge > 0 ? qsTr("%1, %n item(s)", "", badge).arg(text) : text
    Accessible.checked: selected
    Accessible.onPressAction: clicked()
    Keys.onReturnPressed: clicked()

    background: Item {
        Rectangle {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 28
            height: 3
            radius: 1.5
            color: Theme.primary
            opacity: tab.selected ? 1 : 0
        }
    }

    Rectangle {
        x: parent.width / 2 + 4
        y: 8
        width: Math.max(height, count.implicitWidth + 8)
        height: 18
        radius: 9
        color: Theme.accent
        visible: tab.badge > 0
        Body {
            id: count
            anchors.centerIn: parent
            text: tab.badge
            color: "white"
            font.pixelSize: 11
            font.bold: true
        }
    }

    FocusRing { visible: tab.visualFocus; gap: -4; radius: 10 }
}
