import QtQuick
import Cafe

/// The total, and the button that orders.
Column {
    topPadding: 20
    spacing: 14

    Item {
        width: parent.width
        height: total.height
        Body {
            anchors.baseline: total.baseline
            text: qsTr("Total")
            font.pixelSize: Theme.headingSize
        }
        Title {
            id: total
            anchors.right: parent.right
            text: Theme.price(App.cart.totalCents)
            font.pixelSize: 21
        }
    }
    Body {
        objectName: "orderFailure"
        width: parent.width
        visible: text.length > 0
        text: App.cart.failure
        color: Theme.accent
        wrapMode: Text.Wrap
        Accessible.role: Accessible.AlertMessage
        Accessible.name: text
    }
    CafeButton {
        objectName: "placeOrder"
        width: parent.width
        enabled: !App.cart.ordering
        text: App.cart.ordering ? qsTr("Ordering …") : qsTr("Place order")
        onClicked: App.cart.placeOrder()
    }
}
