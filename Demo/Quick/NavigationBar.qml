import QtQuick
import Cafe

/// The bar at the foot of the three main pages, in the room below their content. A `Page.footer` would come first
/// when tabbing through the page; this comes last.
Rectangle {
    id: bar

    required property string current
    readonly property real tabWidth: Math.min(width, 480) / 3

    implicitHeight: Theme.barHeight
    color: Theme.surface

    Rectangle {
        width: parent.width
        height: 1
        color: Theme.line
    }

    Row {
        anchors.horizontalCenter: parent.horizontalCenter
        Accessible.role: Accessible.PageTabList
        Accessible.name: qsTr("Pages")

        NavigationButton {
            objectName: "tab:Menu"
            width: bar.tabWidth
            selected: bar.current === "Menu"
            iconName: "menu"
            text: qsTr("Menu")
            onClicked: Navigator.pageRequested("Menu")
        }
        NavigationButton {
            objectName: "tab:Cart"
            width: bar.tabWidth
            selected: bar.current === "Cart"
            iconName: "cart"
            text: qsTr("Cart")
            badge: App.cart.count
            onClicked: Navigator.pageRequested("Cart")
        }
        NavigationButton {
            objectName: "tab:Profile"
            width: bar.tabWidth
            selected: bar.current === "Profile"
            iconName: "profile"
            text: qsTr("Profile")
            onClicked: Navigator.pageRequested("Profile")
        }
    }
}
