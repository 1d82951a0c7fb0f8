import QtQuick
import Cafe

/// The picture of an item on its tint.
Rectangle {
    id: frame

    required property url source
    property color tint: Theme.sunken
    property real fraction: 0.86

    color: tint
    radius: Theme.radius

    Image {
        anchors.centerIn: parent
        width: Math.min(frame.width, frame.height) * frame.fraction
        height: width
        source: frame.source
        sourceSize.width: width * 2
        sourceSize.height: width * 2
        asynchronous: true
        opacity: status === Image.Ready ? 1 : 0
        Accessible.ignored: true
        Behavior on opacity { NumberAnimation { duration: 180 } }
    }
}
