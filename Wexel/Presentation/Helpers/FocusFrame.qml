import QtQuick

// Shows which control the keyboard acts on.
Rectangle {
    required property Item control

    anchors.fill: parent
    anchors.margins: -3
    radius: 8
    color: "transparent"
    border.color: "#008DFF"
    border.width: 2
    visible: control.activeFocus
}
