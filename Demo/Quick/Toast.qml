import QtQuick
import Cafe

/// A short message that comes and goes by itself.
Rectangle {
    id: toast

    function show(text: string): void {
        label.text = text;
        animation.restart();
    }
    function hide(): void {
        animation.stop();
        opacity = 0;
    }

    width: Math.min(label.implicitWidth + 40, parent.width - 2 * Theme.margin)
    height: 44
    radius: 22
    color: Theme.ink
    opacity: 0
    visible: opacity > 0
    Accessible.role: Accessible.AlertMessage
    Accessible.name: label.text

    Body {
        id: label
        anchors { fill: parent; leftMargin: 20; rightMargin: 20 }
        color: "white"
        font.pixelSize: 13
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }

    SequentialAnimation {
        id: animation
        NumberAnimation { target: toast; property: "opacity"; to: 1; duration: 160 }
        PauseAnimation { duration: 1800 }
        NumberAnimation { target: toast; property: "opacity"; to: 0; duration: 240 }
    }
}
