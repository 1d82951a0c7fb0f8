import QtQuick
import Wexel.Screens

// The screenshot editor.
WXLScreenshotVC {
    id: screen

    readonly property real toolbarWidth: Math.min(width, 520) // a wide window does not pull the tools apart

    screenshotView: canvas
    toolbar: tools
    navigationBarBottom: bar.y + bar.height
    Keys.onEscapePressed: screen.closeButtonTapped()

    Rectangle {
        anchors.fill: parent
        color: screen.backgroundColor
    }
    WXLScreenshotView {
        id: canvas
        anchors.top: bar.bottom
        anchors.bottom: tools.top
        width: parent.width
    }
    NavigationBar {
        id: bar
        width: parent.width
        title: qsTranslate("Wexel", "Mark the bug")
        leftItem: WXLImageBarButtonControl {
            image: "Close"
            name: qsTranslate("Wexel", "Close")
            onTapped: screen.closeButtonTapped()
        }
        rightItem: WXLTitleBarButtonControl {
            title: qsTranslate("Wexel", "Next")
            onTapped: screen.nextButtonTapped()
        }
    }
    ToolbarContainer {
        id: tools
        anchors.bottom: parent.bottom
        anchors.bottomMargin: screen.safeBottom
        anchors.horizontalCenter: parent.horizontalCenter
        width: screen.toolbarWidth
        height: implicitHeight
        spaceBelow: screen.safeBottom
    }
}
