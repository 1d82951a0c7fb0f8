import QtQuick
import Wexel.Screens

// One colour of the palette: a disc, or a ring while it is the current one.
Tappable {
    id: button

    required property WXLToolbarContainerView container
    required property int index
    readonly property int count: container.paletteColors.length
    readonly property real slot: container.width / (count + 1) // the last one is the closing button's
    readonly property color value: container.paletteColors[index]
    readonly property bool isCurrent: index === container.currentDrawingColorIndex
    property real grown: 0 // 0 to 1

    function pop() {
        grown = 0;
        popping.restart();
    }

    name: qsTranslate("Wexel", "Colour %1").arg(index + 1)
    anchors.right: parent.right
    anchors.rightMargin: (index + 1) * slot
    width: slot
    height: parent.height
    opacity: grown
    onTapped: container.colorButtonPressed(index)
    Accessible.checkable: true
    Accessible.checked: isCurrent

    SequentialAnimation {
        id: popping
        PauseAnimation {
            duration: button.index * 1000 / 15 / button.count
        }
        NumberAnimation {
            target: button
            property: "grown"
            to: 1
            duration: button.container.colorAnimationMilliseconds
            easing.type: Easing.OutQuad
        }
    }
    Rectangle {
        id: disc

        readonly property real full: button.container.paletteButtonSize / 2
        readonly property real target: button.isCurrent ? button.container.selectedColorBorderWidth : full
        property real ring // a border as wide as the radius fills the disc

        onTargetChanged: {
            if (button.enabled && button.grown > 0)
                selecting.restart();
            else
                ring = target;
        }
        Component.onCompleted: ring = target

        anchors.centerIn: parent
        width: button.container.paletteButtonSize * button.grown
        height: width
        radius: width / 2
        color: ring < full ? "transparent" : button.value
        border.color: button.value
        border.width: ring

        NumberAnimation {
            id: selecting
            target: disc
            property: "ring"
            to: disc.target
            duration: button.container.colorBorderAnimationMilliseconds
            onFinished: {
                if (button.isCurrent)
                    button.container.colorSelected();
            }
        }
    }
    FocusFrame {
        control: button
        anchors.margins: 4
    }
}
