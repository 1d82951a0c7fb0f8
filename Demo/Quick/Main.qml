import QtQuick
import QtQuick.Controls.Basic
import Cafe

/// The window: three main pages that replace one another, and pages that open over them.
ApplicationWindow {
    title: qsTr("Linden Café")
    width: 390
    height: 844
    minimumWidth: 360
    minimumHeight: 560
    visible: true
    color: Theme.canvas

    MenuPage {
        id: menuPage
        visible: false
    }
    CartPage {
        id: cartPage
        visible: false
    }
    ProfilePage {
        id: profilePage
        visible: false
    }

    Connections {
        target: Navigator
        function onPageRequested(title: string): void {
            const pages = {Menu: menuPage, Cart: cartPage, Profile: profilePage};
            const page = pages[title];
            if (page !== stack.currentItem)
                stack.replace(null, page);
        }
        function onItemRequested(item: var): void {
            stack.push("ItemPage.qml", {item: item});
        }
        function onDeveloperRequested(): void {
            stack.push("DeveloperPage.qml");
        }
        function onBackRequested(): void {
            stack.pop();
        }
        function onToastRequested(text: string): void {
            toast.show(text);
        }
    }

    StackView {
        id: stack
        objectName: "pages"
        anchors.fill: parent
        initialItem: menuPage
        onCurrentItemChanged: {
            if (!currentItem)
                return;
            toast.hide();
            currentItem.forceActiveFocus();
            App.reporting.page = (currentItem as Page).title;
        }

        pushEnter: Transition {
            NumberAnimation { property: "x"; from: stack.width; to: 0; duration: 240; easing.type: Easing.OutCubic }
        }
        pushExit: Transition {
            NumberAnimation { property: "x"; from: 0; to: -stack.width / 4; duration: 240; easing.type: Easing.OutCubic }
        }
        popEnter: Transition {
            NumberAnimation { property: "x"; from: -stack.width / 4; to: 0; duration: 220; easing.type: Easing.OutCubic }
        }
        popExit: Transition {
            NumberAnimation { property: "x"; from: 0; to: stack.width; duration: 220; easing.type: Easing.OutCubic }
        }
        replaceEnter: Transition {
            NumberAnimation { property: "opacity"; from: 0; to: 1; duration: 140 }
        }
        replaceExit: Transition { PauseAnimation { duration: 140 } }
    }

    Toast {
        id: toast
        anchors { horizontalCenter: parent.horizontalCenter; bottom: parent.bottom; bottomMargin: Theme.barHeight + 72 }
    }
}
