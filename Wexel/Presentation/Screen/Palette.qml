import QtQuick
import Wexel.Screens

// The colours, which pop out one after another from right to left, and the button that closes them.
Item {
    id: fan

    required property WXLToolbarContainerView container
    readonly property int count: container.paletteColors.length
    readonly property real slot: container.width / (count + 1) // the last one is the closing button's
    readonly property int duration: container.colorAnimationMilliseconds
    readonly property Item firstButton: buttons.itemAt(0)
    property bool shown: false

    function show() {
        hiding.stop();
        colors.opacity = 1;
        shown = true;
        for (let i = 0; i < count; ++i)
            (buttons.itemAt(i) as PaletteButton).pop();
    }
    function hide() {
        shown = false;
        hiding.restart();
    }

    visible: shown || closeButton.opacity > 0

    NumberAnimation {
        id: hiding
        target: colors
        property: "opacity"
        to: 0
        duration: fan.duration
    }
    Item {
        id: colors
        anchors.fill: parent
        enabled: fan.shown
        opacity: 0

        Repeater { // from left to right, as the keyboard goes
            id: buttons
            model: fan.count

            PaletteButton {
                required property int index

                // qmllint disable unqualified
                container: fan.container
                slot: fan.slot
                place: fan.count - 1 - index
                // qmllint enable unqualified
            }
        }
    }
    Tappable {
        id: closeButton
        name: qsTranslate("Wexel", "Close palette")
        anchors.right: parent.right
        width: fan.slot
        height: parent.height
        enabled: fan.shown
        opacity: fan.shown ? 1 : 0
        onTapped: fan.container.clearPaletteButtonPressed()

        Behavior on opacity {
            NumberAnimation {
                duration: fan.duration
            }
        }
        Artwork {
            anchors.centerIn: parent
            width: 24
            height: 24
            name: "Close"
            tint: Theme.inactiveGrey
            rotation: fan.shown ? 90 : 0

            Behavior on rotation {
                NumberAnimation {
                    duration: fan.duration
                }
            }
        }
        FocusFrame {
            control: closeButton
            anchors.margins: 4
        }
    }
}
