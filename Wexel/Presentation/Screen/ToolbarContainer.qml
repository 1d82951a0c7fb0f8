import QtQuick
import Wexel.Screens

// The tools, and in their place, when it is open, the palette.
WXLToolbarContainerView {
    id: toolbar

    property real spaceBelow: 0
    readonly property int fadeMilliseconds: 100

    implicitHeight: 64

    Item { // white down to the edge of the screen, so that only the upper corners are round
        anchors.top: parent.top
        width: parent.width
        height: parent.height + toolbar.spaceBelow
        clip: true

        Rectangle {
            width: parent.width
            height: parent.height + radius
            color: Theme.white
            radius: 15
        }
    }
    Row {
        id: toolbarStack
        anchors.fill: parent
        visible: opacity > 0

        Repeater {
            model: [
                { tool: WXLToolbarContainerView.Clear, title: qsTranslate("Wexel", "CLEAR"), image: "clear" },
                { tool: WXLToolbarContainerView.Blur, title: qsTranslate("Wexel", "BLUR"), image: "blur" },
                { tool: WXLToolbarContainerView.Draw, title: qsTranslate("Wexel", "DRAW"), image: "draw" },
                { tool: WXLToolbarContainerView.Palette, title: qsTranslate("Wexel", "PALETTE"), image: "palette" }
            ]

            Item {
                id: place
                required property var modelData
                width: toolbarStack.width / 4
                height: toolbarStack.height

                WXLToolbarControl {
                    anchors.verticalCenter: parent.verticalCenter
                    width: parent.width
                    title: place.modelData.title
                    image: place.modelData.image
                    selected: toolbar.selectedTool === place.modelData.tool
                    selectionColor: toolbar.selectionColor
                    onTapped: toolbar.toolPressed(place.modelData.tool)
                }
            }
        }
    }
    Palette {
        id: fan
        anchors.fill: parent
        container: toolbar
    }

    onPaletteShownChanged: {
        opening.stop();
        closing.stop();
        (isPaletteShown ? opening : closing).start();
    }

    SequentialAnimation {
        id: opening
        NumberAnimation {
            target: toolbarStack
            property: "opacity"
            to: 0
            duration: toolbar.fadeMilliseconds
        }
        ScriptAction {
            script: fan.show()
        }
    }
    SequentialAnimation {
        id: closing
        ScriptAction {
            script: fan.hide()
        }
        PauseAnimation {
            duration: toolbar.colorAnimationMilliseconds
        }
        NumberAnimation {
            target: toolbarStack
            property: "opacity"
            to: 1
            duration: toolbar.fadeMilliseconds
        }
    }
}
