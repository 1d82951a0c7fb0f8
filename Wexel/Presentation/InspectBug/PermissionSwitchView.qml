import QtQuick
import Wexel.Screens

// A permission that is granted.
Item {
    id: view

    property string permission

    width: parent ? parent.width : 0
    implicitHeight: Math.max(name.implicitHeight, picture.height)
    Accessible.role: Accessible.StaticText
    Accessible.name: permission

    Item {
        anchors.horizontalCenter: parent.horizontalCenter
        width: parent.width * Theme.multiplierWidthWithoutSafeArea
        height: parent.height

        Label {
            id: name
            anchors.left: parent.left
            anchors.right: picture.left
            anchors.rightMargin: 8
            anchors.verticalCenter: parent.verticalCenter
            text: view.permission
            wrapMode: Text.Wrap
            font: Theme.semiBold(18)
            color: Theme.gunmetal
            Accessible.ignored: true
        }
        Artwork {
            id: picture
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            width: Theme.scaled(24)
            height: width
            name: "switchOn"
            rotation: view.LayoutMirroring.enabled ? 180 : 0
        }
    }
}
