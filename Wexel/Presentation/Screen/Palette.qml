import QtQuick
import Wexel.Screens

// Six colours that pop out one after another, from right to left, and the button that closes them.
Item {
    id: fan

    required property WXLToolbarContainerView container
    readonly property int count: container.paletteColors.length
    readonly property real slot: width / (count + 1) // the last one is the closing button's
    property bool shown: false
    property real colorsOpacity: 0
    readonly property int duration: container.colorAnimationMilliseconds

    function show() {
        for (let i = 0; i < count; ++i)
            buttons.itemAt(i).grown = 0;
        hiding.stop();
        colorsOpacity = 1;
        shown = true;
        for (let i = 0; i < count; ++i)
            buttons.itemAt(i).pop();
    }
    function hide() {
        shown = false;
        hiding.restart();
    }

    visible: shown || closeButton.opacity > 0

    NumberAnimation {
        id: hiding
        target: fan
        property: "colorsOpacity"
        to: 0
        duration: fan.duration
    }

    Repeater {
        id: buttons
        model: fan.container.paletteColors

        Tappable {
            id: button

            required property int index
            required property color modelData
            property real grown: 0 // 0 to 1
            readonly property bool isCurrent: index === fan.container.currentDrawingColorIndex

            function pop() {
                popping.restart();
            }

            name: qsTranslate("Wexel", "Colour %1").arg(index + 1)
            x: fan.width - (index + 2) * fan.slot
            width: fan.slot
            height: fan.height
            enabled: fan.shown
            opacity: grown * fan.colorsOpacity
            onTapped: fan.container.colorButtonPressed(index)

            SequentialAnimation {
                id: popping
                PauseAnimation { duration: button.index * 1000 / 15 / fan.count }
                NumberAnimation {
                    target: button
                    property: "grown"
                    to: 1
                    duration: fan.duration
                    easing.type: Easing.OutQuad
                }
            }
            Rectangle {
                id: disc
                readonly property real full: fan.container.paletteButtonSize / 2
                readonly property real target: button.isCurrent ? fan.container.selectedColorBorderWidth : full
                property real ring // a border as wide as the radius fills the disc

                onTargetChanged: {
                    if (fan.shown)
                        selecting.restart();
                    else
                        ring = target;
                }
                Component.onCompleted: ring = target

                anchors.centerIn: parent
                width: fan.container.paletteButtonSize * button.grown
                height: width
                radius: width / 2
                color: ring < full ? "transparent" : button.modelData
                border.color: button.modelData
                border.width: ring

                NumberAnimation {
                    id: selecting
                    target: disc
                    property: "ring"
                    to: disc.target
                    duration: fan.container.colorBorderAnimationMilliseconds
                    onFinished: {
                        if (button.isCurrent)
                            fan.container.colorSelected();
                    }
                }
            }
            FocusFrame {
                control: button
                anchors.margins: 4
            }
        }
    }
    Tappable {
        id: closeButton
        name: qsTranslate("Wexel", "Close palette")
        x: fan.width - fan.slot
        width: fan.slot
        height: fan.height
        enabled: fan.shown
        opacity: fan.shown ? 1 : 0
        onTapped: fan.container.clearPaletteButtonPressed()

        Behavior on opacity {
            NumberAnimation { duration: fan.duration }
        }
        Artwork {
            anchors.centerIn: parent
            width: 24
            height: 24
            name: "Close"
            tint: Theme.inactiveGrey
            rotation: fan.shown ? 90 : 0

            Behavior on rotation {
                NumberAnimation { duration: fan.duration }
            }
        }
        FocusFrame {
            control: closeButton
            anchors.margins: 4
        }
    }
}
