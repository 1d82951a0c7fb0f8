import QtQuick
import Wexel.Screens

WXLReportingDisabledPopupVC {
    id: popup

    Keys.onEscapePressed: popup.dismissButtonAction()

    FontMetrics {
        id: metrics
        font: Theme.regular(18)
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
        anchors.centerIn: parent
        width: Math.min(parent.width - 2 * 30, 400)
        height: content.height + 30 + 10
        Accessible.role: Accessible.Dialog
        Accessible.name: title.text

        Rectangle {
            anchors.fill: parent
            radius: 15
            color: Theme.white
        }
        Column {
            id: content
            y: 30
            anchors.horizontalCenter: parent.horizontalCenter
            width: parent.width - 2 * 24
            spacing: 16

            Label {
                id: title
                width: parent.width
                text: qsTranslate("Wexel", "Reporting disabled")
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
                font: Theme.semiBold(26)
                color: Theme.black
                Accessible.role: Accessible.Heading
                Accessible.name: text
            }
            Text {
                width: parent.width
                text: popup.explanation
                textFormat: Text.RichText
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
                lineHeightMode: Text.FixedHeight
                lineHeight: metrics.height + 2
                font: Theme.regular(18)
                color: Theme.slate
                Accessible.role: Accessible.StaticText
                Accessible.name: popup.spokenExplanation
            }
            Tappable {
                id: button
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
}
