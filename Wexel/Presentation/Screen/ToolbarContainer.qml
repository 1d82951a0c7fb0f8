import QtQuick
import Wexel.Screens

// The tools, and in their place, when it is open, the palette.
WXLToolbarContainerView {
    id: toolbar

    property real spaceBelow: 0
    readonly property int fadeMilliseconds: 100
    readonly property real fit: Math.min(clearTool.fit, blurTool.fit, drawTool.fit, paletteTool.fit)

    implicitHeight: Math.max(64, toolbarStack.implicitHeight + 12)

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
        anchors.verticalCenter: parent.verticalCenter
        width: parent.width
        visible: opacity > 0

        WXLToolbarControl {
            id: clearTool
            container: toolbar
            commonFit: toolbar.fit
            tool: WXLToolbarContainerView.Clear
            title: qsTranslate("Wexel", "CLEAR")
            image: "clear"
        }
        WXLToolbarControl {
            id: blurTool
            container: toolbar
            commonFit: toolbar.fit
            tool: WXLToolbarContainerView.Blur
            title: qsTranslate("Wexel", "BLUR")
            image: "blur"
        }
        WXLToolbarControl {
            id: drawTool
            container: toolbar
            commonFit: toolbar.fit
            tool: WXLToolbarContainerView.Draw
            title: qsTranslate("Wexel", "DRAW")
            image: "draw"
        }
        WXLToolbarControl {
            id: paletteTool
            container: toolbar
            commonFit: toolbar.fit
            tool: WXLToolbarContainerView.Palette
            title: qsTranslate("Wexel", "PALETTE")
            image: "palette"
        }
    }
    Palette {
        id: fan
        anchors.fill: parent
        container: toolbar
    }

    property bool isUsedByKeyboard: false

    onPaletteShownChanged: {
        if (isPaletteShown)
            isUsedByKeyboard = paletteTool.activeFocus;
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
            script: {
                fan.show();
                if (toolbar.isUsedByKeyboard)
                    fan.firstButton.forceActiveFocus(Qt.TabFocusReason);
            }
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
        ScriptAction {
            script: {
                if (toolbar.isUsedByKeyboard)
                    paletteTool.forceActiveFocus(Qt.TabFocusReason);
            }
        }
    }
}
