import QtQuick
import QtQuick.Controls.Basic
import Cafe

/// The customer, their stamps, and the way to the developer page.
Page {
    id: page

    readonly property int sideMargin: Theme.sideMargin(width)

    objectName: "profilePage"
    title: qsTr("Profile")
    bottomPadding: Theme.barHeight
    background: Rectangle { color: Theme.canvas }

    header: Title {
        topPadding: 28
        bottomPadding: 16
        leftPadding: page.sideMargin
        text: qsTr("Profile")
    }

    Flickable {
        anchors.fill: parent
        contentHeight: column.height
        clip: true

        Column {
            id: column
            x: page.sideMargin
            width: parent.width - 2 * page.sideMargin
            bottomPadding: Theme.margin
            spacing: Theme.margin

            Row {
                spacing: 16
                Rectangle {
                    width: 64
                    height: 64
                    radius: 32
                    color: Theme.primarySoft
                    Title {
                        anchors.centerIn: parent
                        text: "MK"
                        color: Theme.primary
                        font.pixelSize: 20
                    }
                }
                Column {
                    anchors.verticalCenter: parent.verticalCenter
                    spacing: 4
                    Body {
                        text: qsTr("Mara Keller")
                        font.pixelSize: Theme.headingSize
                        font.bold: true
                    }
                    Body {
                        text: "mara@linden.example"
                        color: Theme.inkSoft
                        font.pixelSize: 13
                    }
                }
            }

            Rectangle {
                width: parent.width
                height: 148
                radius: Theme.radius + 2
                color: Theme.primary

                Column {
                    anchors { fill: parent; margins: 20 }
                    spacing: 4
                    Title {
                        text: qsTr("Six of ten stamps")
                        color: "white"
                        font.pixelSize: 18
                    }
                    Body {
                        text: qsTr("Four more and the next coffee is ours.")
                        color: "#D5E4DC"
                        font.pixelSize: 13
                    }
                }
                Row {
                    id: stamps
                    anchors { left: parent.left; bottom: parent.bottom; margins: 20 }
                    spacing: Math.min(10, (parent.width - 40 - 10 * 26) / 9)
                    Repeater {
                        model: 10
                        Rectangle {
                            required property int index
                            width: 26
                            height: 26
                            radius: 13
                            color: index < 6 ? "#F2C98F" : "transparent"
                            border.width: index < 6 ? 0 : 1.5
                            border.color: "#7FA596"
                        }
                    }
                }
            }

            Rectangle {
                width: parent.width
                height: rows.height + 8
                radius: Theme.radius + 2
                color: Theme.surface
                border.width: 1
                border.color: Theme.line

                Column {
                    id: rows
                    x: 4
                    y: 4
                    width: parent.width - 8
                    SettingRow {
                        objectName: "myCart"
                        width: parent.width
                        iconName: "cart"
                        text: qsTr("My cart")
                        detail: qsTr("What you are about to order")
                        onClicked: Navigator.pageRequested("Cart")
                    }
                    Rectangle {
                        x: 52
                        width: parent.width - 68
                        height: 1
                        color: Theme.line
                    }
                    SettingRow {
                        objectName: "developer"
                        width: parent.width
                        iconName: "tools"
                        text: qsTr("Developer")
                        detail: qsTr("Send a report of a fault")
                        onClicked: Navigator.developerRequested()
                    }
                }
            }
        }
    }

    NavigationBar {
        anchors { left: parent.left; right: parent.right; top: parent.bottom }
        current: page.title
    }
}
