import QtQuick
import Wexel.Screens

// The bar on top of a screen: something to tap on the left and on the right, and the title between them, or below them
// where letters are so large that it would become much smaller there.
Item {
    id: bar

    property alias title: titleView.title
    property alias leftItem: left.data
    property alias rightItem: right.data
    readonly property real sideMargin: 16
    readonly property real leftSide: sideMargin + (LayoutMirroring.enabled ? right : left).width
    readonly property real rightSide: sideMargin + (LayoutMirroring.enabled ? left : right).width
    readonly property real between: width - leftSide - rightSide
    readonly property bool isStacked: Theme.scaled(1) > 1 && 0.6 * titleView.naturalWidth > between
    readonly property real row: Math.max(44, left.height, right.height, isStacked ? 0 : titleView.implicitHeight)

    y: Theme.safeTop()
    implicitHeight: isStacked ? row + titleView.implicitHeight : row

    Item {
        id: left
        anchors.left: parent.left
        anchors.leftMargin: bar.sideMargin
        y: (bar.row - height) / 2
        width: childrenRect.width
        height: childrenRect.height
    }
    WXLTitleView {
        id: titleView
        readonly property real side: bar.isStacked ? bar.sideMargin : Math.max(bar.leftSide, bar.rightSide)
        readonly property bool isCentred: bar.isStacked || naturalWidth <= bar.width - 2 * side

        // Not in the middle where one side takes the room for that: next to that one.
        x: isCentred || bar.leftSide > bar.rightSide ? side : bar.width - side - width
        y: bar.isStacked ? bar.row - offset : 0
        width: isCentred ? bar.width - 2 * side : Math.min(naturalWidth, bar.between)
        height: bar.isStacked ? implicitHeight : bar.row
    }
    Item {
        id: right
        anchors.right: parent.right
        anchors.rightMargin: bar.sideMargin
        y: (bar.row - height) / 2
        width: childrenRect.width
        height: childrenRect.height
    }
}
