import QtQuick
import QtQuick.Controls.Basic
import Cafe

/// An item in the menu's grid: opens its page, or adds it to the cart as it comes.
AbstractButton {
    id: card

    required property var item

    objectName: "card:" + item.itemId
    onClicked: Navigator.itemRequested(item)
    Accessible.role: Accessible.Button
    Accessible.name: qsTr("%1, %2").arg(item.name).arg(Theme.price(item.cents))
    Accessible.description: item.summary
    Accessible.onPressAction: clicked()
    Keys.onReturnPressed: clicked()

    background: Rectangle {
        radius: Theme.radius + 2
        color: Theme.surface
        border.width: 1
        border.color: card.down ? Theme.primary : Theme.line
    }
    Item {
        anchors.fill: parent
        Picture {
            id: picture
            x: 8
            y: 8
            width: parent.width - 16
            height: 116
            source: card.item.picture
            tint: card.item.tint
        }
        Body {
            id: name
            anchors { left: parent.left; right: parent.right; top: picture.bottom; margins: 14; topMargin: 12 }
            text: card.item.name
            font.bold: true
        }
        Body {
            anchors { left: name.left; right: name.right; top: name.bottom; topMargin: 4 }
            text: card.item.summary
            color: Theme.inkSoft
            font.pixelSize: Theme.captionSize
            lineHeight: 1.15
            wrapMode: Text.Wrap
            maximumLineCount: 2
        }
        Body {
            anchors { left: name.left; verticalCenter: add.verticalCenter }
            text: Theme.price(card.item.cents)
            font.bold: true
            color: Theme.accent
        }
        IconButton {
            id: add
            anchors { right: parent.right; bottom: parent.bottom; margins: 10 }
            objectName: "add:" + card.item.itemId
            iconName: "plus"
            label: qsTr("Add %1 to the cart").arg(card.item.name)
            implicitWidth: 36
            implicitHeight: 36
            filled: true
            onClicked: {
                App.cart.add(card.item, [], 1);
                Navigator.toastRequested(qsTr("%1 added to the cart").arg(card.item.name));
            }
        }
    }

    FocusRing { visible: card.visualFocus; radius: Theme.radius + 5 }
}
