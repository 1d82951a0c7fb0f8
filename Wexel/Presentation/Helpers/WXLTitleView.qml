import QtQuick
import Wexel.Screens

// The title of a screen, a little below the middle of its bar.
Item {
    id: view

    property string title
    readonly property real offset: 6
    readonly property real naturalWidth: Math.ceil(natural.advanceWidth) + 2 // what letters reach beyond it

    implicitHeight: Theme.scaled(1) > 1 ? metrics.height + 2 * offset : 44

    FontMetrics {
        id: metrics
        font: Theme.semiBold(26)
    }
    TextMetrics {
        id: natural
        font: metrics.font
        text: view.title
    }
    Label {
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.verticalCenter: parent.verticalCenter
        anchors.verticalCenterOffset: view.offset
        width: Math.min(implicitWidth, view.width)
        text: view.title
        fontSizeMode: Text.HorizontalFit // a long one rather gets smaller than shorter
        minimumPixelSize: 14
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        font: metrics.font
        color: Theme.white
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
}
