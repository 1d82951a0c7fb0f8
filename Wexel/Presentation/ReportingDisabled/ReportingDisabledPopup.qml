import QtQuick
import Wexel.Screens

WXLReportingDisabledPopupVC {
    id: popup

    readonly property real scaling: Theme.scaled(1)

    function scrollBy(points: real) {
        scroll.contentY = Math.max(0, Math.min(scroll.contentHeight - scroll.height, scroll.contentY + points));
    }

    Keys.onEscapePressed: popup.dismissButtonAction()
    Keys.onUpPressed: scrollBy(-60)
    Keys.onDownPressed: scrollBy(60)

    FontMetrics {
        id: metrics
        font: explanation.font
    }
    Rectangle {
        anchors.fill: parent
        color: Theme.shadow
    }
    MouseArea { // nothing goes to the editor below
        anchors.fill: parent
        preventStealing: true
    }
    Item {
        id: card

        readonly property real margin: 30 / popup.scaling // large letters need the room
        readonly property real natural: 30 + texts.height + 16 + button.height + 10

        anchors.centerIn: parent
        width: Math.min(parent.width - 2 * margin, 400 * popup.scaling)
        height: Math.min(parent.height - 2 * margin - Theme.safeTop(), natural)
        Accessible.role: Accessible.Dialog
        Accessible.name: title.text

        Rectangle {
            anchors.fill: parent
            radius: 15
            color: Theme.white
        }
        Flickable {
            id: scroll
            anchors.top: parent.top
            anchors.topMargin: fits ? 30 : 15 // which also is the corners' radius
            anchors.bottom: button.top
            anchors.bottomMargin: fits ? 16 : 0
            anchors.horizontalCenter: parent.horizontalCenter
            width: parent.width - 2 * 24 / popup.scaling
            contentHeight: texts.height
            clip: !fits
            boundsBehavior: Flickable.StopAtBounds

            readonly property bool fits: card.height >= card.natural

            Column {
                id: texts
                width: parent.width
                spacing: 16

                Label {
                    id: title
                    width: parent.width
                    text: qsTranslate("Wexel", "Reporting disabled")
                    horizontalAlignment: Text.AlignHCenter
                    wrapMode: Text.Wrap
                    font: Theme.fitting(Theme.semiBold(26), text, width)
                    color: Theme.black
                    Accessible.role: Accessible.Heading
                    Accessible.name: text
                }
                Text {
                    id: explanation
                    width: parent.width
                    text: popup.explanation
                    textFormat: Text.RichText
                    horizontalAlignment: Text.AlignHCenter
                    wrapMode: Text.Wrap
                    lineHeightMode: Text.FixedHeight
                    lineHeight: metrics.height + 2
                    font: Theme.fitting(Theme.regular(18), popup.spokenExplanation, width)
                    color: Theme.slate
                    Accessible.role: Accessible.StaticText
                    Accessible.name: popup.spokenExplanation
                }
            }
        }
        Rule {
            anchors.bottom: button.top
            width: parent.width
            visible: !scroll.atYEnd
        }
        Tappable {
            id: button
            anchors.bottom: parent.bottom
            anchors.bottomMargin: 10
            anchors.horizontalCenter: parent.horizontalCenter
            name: label.text
            width: label.implicitWidth + 2 * 20
            height: label.implicitHeight + 2 * 20
            focus: true
            onTapped: popup.dismissButtonAction()

            Label {
                id: label
                anchors.centerIn: parent
                text: qsTranslate("Wexel", "Dismiss")
                font: Theme.semiBold(20)
                color: Theme.lightBlue
                opacity: button.pressed ? 0.5 : 1
            }
            FocusFrame {
                control: button
                anchors.margins: 8
            }
        }
    }
}
