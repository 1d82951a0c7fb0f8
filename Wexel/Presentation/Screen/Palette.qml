import QtQuick
import Wexel.Screens

// Six colours that pop out one after another, from right to left, and the button that closes them.
Item {
    id: fan

    required property WXLToolbarContainerView container
    readonly property real slot: grey.slot
    readonly property int duration: container.colorAnimationMilliseconds
    readonly property Item firstButton: red
    property bool shown: false

    function show() {
        hiding.stop();
        colors.opacity = 1;
        shown = true;
        for (const button of [grey, yellow, green, blue, purple, red])
            button.pop();
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

        // One by one: those of a repeater outlive the screen, and what they read from it, for a moment.
        PaletteButton {
            id: red
            container: fan.container
            index: 5
        }
        PaletteButton {
            id: purple
            container: fan.container
            index: 4
        }
        PaletteButton {
            id: blue
            container: fan.container
            index: 3
        }
        PaletteButton {
            id: green
            container: fan.container
            index: 2
        }
        PaletteButton {
            id: yellow
            container: fan.container
            index: 1
        }
        PaletteButton {
            id: grey
            container: fan.container
            index: 0
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
