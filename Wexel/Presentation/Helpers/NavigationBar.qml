import QtQuick
import Wexel.Screens

// The bar on top of a screen: something to tap on the left and on the right, and the title between them.
Item {
    id: bar

    property alias title: titleView.title
    property alias leftItem: left.data
    property alias rightItem: right.data
    readonly property real sideMargin: 16

    y: Theme.safeTop()
    implicitHeight: 44

    Item {
        id: left
        anchors.left: parent.left
        anchors.leftMargin: bar.sideMargin
        width: childrenRect.width
        height: parent.height
    }
    WXLTitleView {
        id: titleView
        readonly property real side: bar.sideMargin + Math.max(left.width, right.width)
        x: side
        width: parent.width - 2 * side
        height: parent.height
    }
    Item {
        id: right
        anchors.right: parent.right
        anchors.rightMargin: bar.sideMargin
        width: childrenRect.width
        height: parent.height
    }
}
