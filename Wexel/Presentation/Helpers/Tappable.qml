import QtQuick

// Something to tap, with the pointer or with Enter and Space.
Item {
    id: control

    property string name
    property alias pressed: area.pressed

    signal tapped

    activeFocusOnTab: true
    Accessible.role: Accessible.Button
    Accessible.name: name
    Accessible.onPressAction: {
        if (enabled) // assistive technology may press what is on its way out
            tapped();
    }
    Keys.onReturnPressed: tapped()
    Keys.onEnterPressed: tapped()
    Keys.onSpacePressed: tapped()

    MouseArea {
        id: area
        anchors.fill: parent
        cursorShape: Qt.PointingHandCursor
        onClicked: control.tapped()
    }
}
