import QtQuick
import QtQuick.Controls.Basic
import Cafe

/// One item: its picture, its story, its options, and the button that puts it into the cart.
Page {
    id: page

    required property var item
    property int quantity: 1
    property var choices: new Array(item.options.length).fill(0)
    readonly property int sideMargin: Theme.sideMargin(width)

    function choose(group: int, choice: int): void {
        const next = choices.slice();
        next[group] = choice;
        choices = next;
    }

    objectName: "itemPage"
    title: item.name
    bottomPadding: Theme.barHeight
    background: Rectangle { color: Theme.canvas }
    Keys.onEscapePressed: Navigator.backRequested()

    Flickable {
        anchors.fill: parent
        contentHeight: column.height
        clip: true
        ScrollBar.vertical: ScrollBar {}

        Column {
            id: column
            width: parent.width
            bottomPadding: 72

            Picture {
                width: parent.width
                height: 310
                radius: 0
                fraction: 0.74
                source: page.item.picture
                tint: page.item.tint
            }
            Column {
                anchors.horizontalCenter: parent.horizontalCenter
                width: parent.width - 2 * page.sideMargin
                topPadding: 22
                spacing: 10

                Item {
                    width: parent.width
                    height: name.height
                    Title {
                        id: name
                        anchors { left: parent.left; right: price.left; rightMargin: 12 }
                        text: page.item.name
                    }
                    Body {
                        id: price
                        anchors { right: parent.right; baseline: name.baseline }
                        text: Theme.price(page.item.cents)
                        font.pixelSize: 17
                        font.bold: true
                        color: Theme.accent
                    }
                }
                Body {
                    width: parent.width
                    text: page.item.description
                    color: Theme.inkSoft
                    lineHeight: 1.3
                    wrapMode: Text.Wrap
                }
                Repeater {
                    model: page.item.options
                    onItemAdded: (index, item) => {
                        const group = item as OptionGroup;
                        group.chosenChanged.connect(() => page.choose(index, group.chosen));
                    }

                    OptionGroup {
                        required property var modelData

                        width: parent.width
                        topPadding: 10
                        name: modelData.name
                        choices: modelData.choices
                    }
                }
            }
        }
    }

    IconButton {
        x: page.sideMargin - 4
        y: 20
        objectName: "back"
        iconName: "back"
        label: qsTr("Back to the menu")
        onClicked: Navigator.backRequested()
    }

    ActionBar {
        anchors { left: parent.left; right: parent.right; top: parent.bottom }

        QuantityStepper {
            id: stepper
            anchors.verticalCenter: parent.verticalCenter
            buttonSize: 40
            value: page.quantity
            minimum: 1
            subject: page.item.name
            onChanged: value => page.quantity = value
        }
        CafeButton {
            anchors { left: stepper.right; leftMargin: 14; right: parent.right; verticalCenter: parent.verticalCenter }
            objectName: "addToCart"
            text: qsTr("Add · %1").arg(Theme.price(page.item.price(page.choices) * page.quantity))
            Accessible.name: qsTr("Add to cart, %1").arg(text)
            onClicked: {
                App.cart.add(page.item, page.choices, page.quantity);
                Navigator.backRequested(); // first: a toast goes with its page
                Navigator.toastRequested(qsTr("%1 added to the cart").arg(page.item.name));
            }
        }
    }
}
