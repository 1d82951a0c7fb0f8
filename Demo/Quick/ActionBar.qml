import QtQuick
import Cafe

/// The bar at the foot of a page that holds what the page is for. Its content keeps to the page's column.
Rectangle {
    id: bar

    default property alias content: column.data

    implicitHeight: Theme.barHeight
    color: Theme.surface

    Rectangle {
        width: parent.width
        height: 1
        color: Theme.line
    }
    Item {
        id: column
        anchors { top: parent.top; bottom: parent.bottom; horizontalCenter: parent.horizontalCenter }
        width: bar.width - 2 * Theme.sideMargin(bar.width)
    }
}
