import QtQuick
import QtQuick.Controls.Basic
import Cafe

/// A row of a list that leads somewhere.
AbstractButton {
    id: row

    required property string iconName
    property string detail

    implicitHeight: 64
    icon.source: "Icons/" + iconName + ".svg"
    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.description: detail
    Accessible.onPressAction: clicked()
    Keys.onReturnPressed: clicked()

    background: Rectangle {
        radius: Theme.radius
        color: row.down ? Theme.sunken : "transparent"
    }
    Item {
        anchors { fill: parent; leftMargin: 16; rightMargin: 16 }
        Image {
            id: image
            anchors.verticalCenter: parent.verticalCenter
            source: row.icon.source
            sourceSize.width: 22
            sourceSize.height: 22
            opacity: 0.75
            Accessible.ignored: true
        }
        Column {
            anchors { left: image.right; leftMargin: 14; right: arrow.left; rightMargin: 8; verticalCenter: parent.verticalCenter }
            spacing: 2
            Body {
                width: parent.width
                text: row.text
            }
            Body {
                width: parent.width
                visible: text.length > 0
                text: row.detail
                color: Theme.inkSoft
                font.pixelSize: Theme.captionSize
            }
        }
        Image {
            id: arrow
            anchors { right: parent.right; verticalCenter: parent.verticalCenter }
            source: "Icons/forward.svg"
            sourceSize.width: 18
            sourceSize.height: 18
            opacity: 0.5
            Accessible.ignored: true
        }
    }

    FocusRing { visible: row.visualFocus; gap: -2; radius: Theme.radius - 2 }
}
