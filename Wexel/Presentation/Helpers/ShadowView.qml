import QtQuick
import Wexel.Screens

ShadowContainer {
    id: container

    Rectangle {
        anchors.top: parent.bottom
        width: parent.width
        height: container.shadowHeight
        opacity: 0.07
        gradient: Gradient {
            GradientStop {
                position: 0
                color: "black"
            }
            GradientStop {
                position: 1
                color: "transparent"
            }
        }
    }
}
