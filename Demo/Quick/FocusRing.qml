import QtQuick
import Cafe

/// Drawn around its parent; visible while that control has the focus of the keyboard.
Rectangle {
    property int gap: 3

    anchors.fill: parent
    anchors.margins: -gap
    z: 1
    color: "transparent"
    border.width: 2
    border.color: Theme.focus
}
