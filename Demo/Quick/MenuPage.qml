import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Cafe

/// The menu: its categories and the items of the chosen one, or why there are none.
Page {
    id: page

    readonly property int sideMargin: Theme.sideMargin(width)

    objectName: "menuPage"
    title: qsTr("Menu")
    bottomPadding: Theme.barHeight
    background: Rectangle { color: Theme.canvas }

    header: Column {
        topPadding: 28
        bottomPadding: 16
        leftPadding: page.sideMargin
        rightPadding: page.sideMargin
        spacing: 6

        Title {
            text: qsTr("Linden Café")
            font.pixelSize: 30
        }
        Row {
            spacing: 7
            Image {
                anchors.verticalCenter: parent.verticalCenter
                source: "Icons/clock.svg"
                sourceSize.width: 15
                sourceSize.height: 15
                opacity: 0.65
                Accessible.ignored: true
            }
            Body {
                text: qsTr("Pick-up in 8 minutes · 12 Linden Street")
                color: Theme.inkSoft
                font.pixelSize: 13
            }
        }
    }

    ColumnLayout {
        anchors.fill: parent
        spacing: 0
        visible: App.menu.status === MenuModel.Ready

        ListView {
            id: chips
            objectName: "categories"
            Layout.fillWidth: true
            implicitHeight: 50
            orientation: ListView.Horizontal
            leftMargin: page.sideMargin
            rightMargin: page.sideMargin
            spacing: 8
            model: App.menu.categories
            delegate: CategoryChip {
                required property var modelData
                objectName: "category:" + modelData.id
                y: 6
                text: modelData.name
                checked: App.menu.category === modelData.id
                onClicked: App.menu.category = modelData.id
            }
        }

        GridView {
            id: grid

            readonly property int ringRoom: 6 // the clipped view must not cut the focus ring
            readonly property int columns: Math.max(2, Math.floor(width / 165))

            objectName: "items"
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.leftMargin: page.sideMargin - ringRoom
            Layout.rightMargin: page.sideMargin - Theme.gap
            leftMargin: ringRoom
            topMargin: 10
            bottomMargin: 4
            clip: true
            cellWidth: Math.floor((width - ringRoom) / columns)
            cellHeight: 246 + Theme.gap
            model: App.menu
            delegate: Item {
                required property var item
                width: (GridView.view as GridView).cellWidth
                height: (GridView.view as GridView).cellHeight
                ItemCard {
                    width: parent.width - Theme.gap
                    height: parent.height - Theme.gap
                    item: parent.item
                }
            }
            ScrollBar.vertical: ScrollBar {}
        }
    }

    GridLayout {
        id: skeleton
        objectName: "loading"
        anchors { left: parent.left; right: parent.right; top: parent.top; leftMargin: page.sideMargin; rightMargin: page.sideMargin; topMargin: 60 }
        visible: App.menu.status === MenuModel.Loading
        columns: 2
        columnSpacing: Theme.gap
        rowSpacing: Theme.gap
        Accessible.role: Accessible.StaticText
        Accessible.name: qsTr("The menu is loading")

        Repeater {
            model: 4
            Rectangle {
                Layout.fillWidth: true
                implicitHeight: 246
                radius: Theme.radius + 2
                color: Theme.sunken
            }
        }
        SequentialAnimation on opacity {
            running: skeleton.visible
            loops: Animation.Infinite
            NumberAnimation { from: 1; to: 0.45; duration: 700; easing.type: Easing.InOutSine }
            NumberAnimation { from: 0.45; to: 1; duration: 700; easing.type: Easing.InOutSine }
        }
    }

    StateMessage {
        objectName: "menuFailure"
        anchors.centerIn: parent
        width: Math.min(parent.width - 2 * Theme.margin - 24, 360)
        visible: App.menu.status === MenuModel.Failed
        iconName: "offline"
        title: qsTr("The menu did not arrive")
        explanation: App.menu.errorText
        action: qsTr("Retry")
        onActed: App.menu.load()
    }

    NavigationBar {
        anchors { left: parent.left; right: parent.right; top: parent.bottom }
        current: page.title
    }
}
