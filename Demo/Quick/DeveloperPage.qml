import QtQuick
import QtQuick.Controls.Basic
import Cafe

/// The library's calls, one button each.
Page {
    id: page

    readonly property int sideMargin: Theme.sideMargin(width)

    objectName: "developerPage"
    title: qsTr("Developer")
    background: Rectangle { color: Theme.canvas }
    Keys.onEscapePressed: Navigator.backRequested()

    header: Item {
        implicitHeight: 80
        IconButton {
            id: back
            anchors.verticalCenter: parent.verticalCenter
            x: page.sideMargin - 4
            objectName: "back"
            iconName: "back"
            label: qsTr("Back to the profile")
            onClicked: Navigator.backRequested()
        }
        Title {
            anchors { left: back.right; leftMargin: 14; verticalCenter: parent.verticalCenter }
            text: page.title
            font.pixelSize: 22
        }
    }

    Flickable {
        anchors.fill: parent
        contentHeight: column.height
        clip: true

        Column {
            id: column
            x: page.sideMargin
            width: parent.width - 2 * page.sideMargin
            topPadding: 4
            bottomPadding: Theme.margin
            spacing: Theme.gap

            Body {
                width: parent.width
                text: qsTr("Description")
                font.bold: true
            }
            TextField {
                id: description
                objectName: "description"
                width: parent.width
                height: 48
                leftPadding: 16
                rightPadding: 16
                placeholderText: qsTr("What went wrong?")
                placeholderTextColor: Theme.inkSoft
                color: Theme.ink
                selectionColor: Theme.primary
                font.pixelSize: Theme.bodySize
                Accessible.role: Accessible.EditableText
                Accessible.name: qsTr("Description of the report")
                background: Rectangle {
                    radius: Theme.radius - 2
                    color: Theme.surface
                    border.width: description.activeFocus ? 2 : 1
                    border.color: description.activeFocus ? Theme.primary : Theme.line
                }
            }
            CafeButton {
                objectName: "reportWithScreenshot"
                width: parent.width
                text: qsTr("Report now with a screenshot")
                onClicked: {
                    App.reporting.reportWithScreenshot(description.text);
                    Navigator.toastRequested(qsTr("Report with a screenshot handed over"));
                }
            }
            CafeButton {
                objectName: "reportWithoutScreenshot"
                width: parent.width
                quiet: true
                text: qsTr("Report now without a screenshot")
                onClicked: {
                    App.reporting.reportWithoutScreenshot(description.text);
                    Navigator.toastRequested(qsTr("Report handed over"));
                }
            }
            Body {
                topPadding: Theme.gap
                width: parent.width
                text: qsTr("From the app itself")
                font.bold: true
            }
            Body {
                width: parent.width
                text: qsTr("What the app sends on its own when it notices a fault: no description, no screenshot.")
                color: Theme.inkSoft
                lineHeight: 1.25
                wrapMode: Text.Wrap
            }
            CafeButton {
                objectName: "automaticReport"
                width: parent.width
                quiet: true
                text: qsTr("Automatic report")
                onClicked: {
                    App.reporting.reportAutomatically();
                    Navigator.toastRequested(qsTr("Automatic report handed over"));
                }
            }
            Switch {
                id: blackBox
                objectName: "blackBox"
                width: parent.width
                height: 68
                leftPadding: 16
                rightPadding: 16
                text: qsTr("Black box")
                checked: App.reporting.blackBoxEnabled
                onToggled: App.reporting.blackBoxEnabled = checked
                Accessible.role: Accessible.CheckBox
                Accessible.name: text
                Accessible.checkable: true
                Accessible.checked: checked
                Accessible.onPressAction: toggle()

                background: Rectangle {
                    radius: Theme.radius
                    color: Theme.surface
                    border.width: 1
                    border.color: Theme.line
                }
                contentItem: Column {
                    topPadding: 8
                    spacing: 3
                    Body {
                        text: blackBox.text
                        font.bold: true
                    }
                    Body {
                        text: qsTr("Remembers the device's last minute")
                        color: Theme.inkSoft
                        font.pixelSize: Theme.captionSize
                    }
                }
                indicator: Rectangle {
                    x: blackBox.width - width - 16
                    anchors.verticalCenter: parent.verticalCenter
                    width: 46
                    height: 28
                    radius: 14
                    color: blackBox.checked ? Theme.primary : "#B9ADA1"
                    Behavior on color { ColorAnimation { duration: 120 } }
                    Rectangle {
                        x: 3 + blackBox.visualPosition * (parent.width - width - 6)
                        y: 3
                        width: 22
                        height: 22
                        radius: 11
                        color: "white"
                        Behavior on x { NumberAnimation { duration: 120 } }
                    }
                }
                FocusRing { visible: blackBox.visualFocus; radius: Theme.radius + 3 }
            }
            Rectangle {
                width: parent.width
                height: note.height + 32
                radius: Theme.radius
                color: Theme.primarySoft
                Body {
                    id: note
                    x: 16
                    y: 16
                    width: parent.width - 32
                    text: qsTr("Every report says which page is open, what the cart holds, what device this is, and what was tapped and requested before. It waits on disk until the receiver has it.")
                    lineHeight: 1.25
                    wrapMode: Text.Wrap
                }
            }
        }
    }
}
