import QtQuick
import Wexel.Screens

// One picture as a card with a white frame, and a button that removes it.
Item {
    id: cell

    property alias image: picture.image
    property bool canDelete: false
    readonly property real roundDeleteButtonDimension: 20

    signal deletePressed

    width: 90
    height: 160
    Accessible.role: Accessible.Graphic
    Accessible.name: qsTranslate("Wexel", "Screenshot")

    Item {
        id: card
        anchors.left: parent.left
        anchors.verticalCenter: parent.verticalCenter
        width: 75 + 5.6
        height: 150 + 5.6

        Shadow {
            color: Theme.buttonShadow
            opacity: 0.6
            offset: Qt.point(1, 3)
            blur: 3
            cornerRadius: 5.6
        }
        Rectangle {
            anchors.fill: parent
            radius: 5.6
            color: Theme.white
        }
        Picture {
            id: picture
            anchors.centerIn: parent
            width: 75
            height: 150
            fills: true
        }
        WXLLargerTappableButton {
            id: deleteButton
            visible: cell.canDelete
            width: cell.roundDeleteButtonDimension
            height: width
            anchors.right: parent.right
            anchors.rightMargin: -5
            y: -5
            scale: highlighted ? 1.1 : 1
            activeFocusOnTab: true
            Accessible.role: Accessible.Button
            Accessible.name: qsTranslate("Wexel", "Remove screenshot")
            Accessible.onPressAction: {
                if (!enabled)
                    return;
                forceActiveFocus(); // as pressing it by key has it
                cell.deletePressed();
            }
            Keys.onReturnPressed: cell.deletePressed()
            Keys.onEnterPressed: cell.deletePressed()
            Keys.onSpacePressed: cell.deletePressed()
            onTapped: cell.deletePressed()

            Behavior on scale {
                NumberAnimation { duration: 200 }
            }
            Shadow {
                color: Theme.buttonShadow
                offset: Qt.point(0, 4)
                blur: 5
                cornerRadius: 10
            }
            Rectangle {
                anchors.fill: parent
                radius: 10
                color: Theme.white
            }
            Artwork {
                anchors.fill: parent
                name: "delete-icon"
            }
            FocusFrame {
                control: deleteButton
                radius: 14
                anchors.margins: -4
            }
        }
    }
}
