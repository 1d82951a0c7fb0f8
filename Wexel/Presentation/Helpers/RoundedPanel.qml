import QtQuick
import Wexel.Screens

// The white panel below the bar, round at its upper corners.
Item {
    default property alias content: inside.data

    clip: true

    Rectangle {
        width: parent.width
        height: parent.height + radius
        radius: 15
        color: Theme.white
    }
    // A wide window does not stretch the lines.
    Item {
        id: inside
        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(parent.width, 640)
        height: parent.height
    }
}
