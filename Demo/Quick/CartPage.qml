import QtQuick
import QtQuick.Controls.Basic
import Cafe

/// What is about to be ordered, and the order itself.
Page {
    id: page

    readonly property int sideMargin: Theme.sideMargin(width)

    objectName: "cartPage"
    title: qsTr("Cart")
    bottomPadding: Theme.barHeight
    background: Rectangle { color: Theme.canvas }

    header: Title {
        topPadding: 28
        bottomPadding: 16
        leftPadding: page.sideMargin
        text: qsTr("Your cart")
    }

    ListView {
        id: list
        objectName: "cartLines"
        anchors { fill: parent; leftMargin: page.sideMargin; rightMargin: page.sideMargin }
        bottomMargin: Theme.gap
        spacing: Theme.gap
        clip: true
        visible: App.cart.count > 0
        model: App.cart
        delegate: CartLine {
            width: ListView.view.width
        }
        footer: CartSummary { width: ListView.view.width }
        removeDisplaced: Transition { NumberAnimation { property: "y"; duration: 160; easing.type: Easing.OutCubic } }
    }

    StateMessage {
        objectName: "cartEmpty"
        anchors { centerIn: parent; verticalCenterOffset: -30 }
        width: Math.min(parent.width - 2 * Theme.margin - 24, 360)
        visible: App.cart.count === 0
        iconName: App.cart.orderNumber > 0 ? "leaf" : "cart"
        title: App.cart.orderNumber > 0 ? qsTr("Thank you") : qsTr("Nothing here yet")
        explanation: App.cart.orderNumber > 0 ? qsTr("Order %1 will be ready in %2 minutes.").arg(App.cart.orderNumber).arg(App.cart.orderMinutes)
                                          : qsTr("A flat white would be a good start.")
        action: qsTr("See the menu")
        onActed: Navigator.pageRequested("Menu")
    }

    NavigationBar {
        anchors { left: parent.left; right: parent.right; top: parent.bottom }
        current: page.title
    }
}
