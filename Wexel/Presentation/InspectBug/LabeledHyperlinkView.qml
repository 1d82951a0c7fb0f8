import QtQuick
import Wexel.Screens

// Where testers can read how to report well.
Item {
    id: view

    implicitHeight: 12 + row.implicitHeight + 1

    Rule {
        width: parent.width * Theme.multiplierWidthWithoutSafeArea
        anchors.horizontalCenter: parent.horizontalCenter
    }
    Flow {
        id: row
        y: 1 + 12
        anchors.horizontalCenter: parent.horizontalCenter
        width: parent.width * Theme.multiplierWidthWithoutSafeArea
        spacing: 2

        Label {
            width: Math.min(implicitWidth, row.width)
            wrapMode: Text.Wrap
            text: qsTranslate("Wexel", "How to report better bugs?")
            font: Theme.regular(15)
            color: Theme.regularGrey
        }
        Tappable {
            id: link
            name: words.text
            Accessible.role: Accessible.Link
            implicitWidth: words.width
            implicitHeight: words.implicitHeight
            onTapped: Qt.openUrlExternally(HelpPage.address)

            Label {
                id: words
                width: Math.min(implicitWidth, row.width)
                wrapMode: Text.Wrap
                text: qsTranslate("Wexel", "Read here")
                font: Theme.semiBold(15)
                color: Theme.lightBlue
                opacity: link.pressed ? 0.5 : 1
            }
            FocusFrame {
                control: link
            }
        }
    }
}
