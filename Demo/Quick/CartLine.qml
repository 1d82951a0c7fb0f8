import QtQuick
import Cafe

/// One row of the cart.
Rectangle {
    id: line

    required property int index
    required property string name
    required property string detail
    required property url picture
    required property color tint
    required property int cents
    required property int quantity

    height: 96
    radius: Theme.radius + 2
    color: Theme.surface
    border.width: 1
    border.color: Theme.line
    Accessible.role: Accessible.ListItem
    Accessible.name: qsTr("%1 × %2, %3, %4").arg(quantity).arg(name).arg(detail).arg(Theme.price(cents))

    Picture {
        id: thumbnail
        x: 8
        y: 8
        width: 80
        height: 80
        source: line.picture
        tint: line.tint
    }
    Body {
        id: title
        anchors { left: thumbnail.right; right: parent.right; top: parent.top; margins: 14; topMargin: 13 }
        text: line.name
        font.bold: true
    }
    Body {
        anchors { left: title.left; right: title.right; top: title.bottom; topMargin: 2 }
        text: line.detail
        color: Theme.inkSoft
        font.pixelSize: Theme.captionSize
    }
    Body {
        anchors { left: title.left; verticalCenter: stepper.verticalCenter }
        text: Theme.price(line.cents)
        font.bold: true
        color: Theme.accent
    }
    QuantityStepper {
        id: stepper
        objectName: "quantity:" + line.index
        anchors { right: parent.right; bottom: parent.bottom; margins: 10 }
        buttonSize: 32
        value: line.quantity
        subject: line.name
        onChanged: value => App.cart.setQuantity(line.index, value)
    }
}
