import QtQuick
import Wexel.Screens

// The compose screen.
WXLReportComposeViewController {
    id: screen

    resizingTextView: description
    Keys.onEscapePressed: screen.backButtonAction()

    Rectangle {
        anchors.fill: parent
        color: screen.backgroundColor
    }
    NavigationBar {
        id: bar
        width: parent.width
        title: qsTranslate("Wexel", "Wrap-up")
        leftItem: WXLImageBarButtonControl {
            image: "back-arrow"
            name: qsTranslate("Wexel", "Back")
            onTapped: screen.backButtonAction()
        }
        rightItem: WXLTitleBarButtonControl {
            title: qsTranslate("Wexel", "Submit")
            onTapped: screen.submitButtonPressed()
        }
    }
    RoundedPanel {
        anchors.top: bar.bottom
        anchors.topMargin: 12
        anchors.bottom: parent.bottom
        width: parent.width

        ShadowView {
            id: top
            z: 1
            width: parent.width
            height: description.implicitHeight

            ResizingTextView {
                id: description
                width: parent.width
                height: implicitHeight
            }
        }
        Flickable {
            id: scroll
            anchors.top: top.bottom
            anchors.bottom: parent.bottom
            width: parent.width
            contentHeight: column.height
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            onContentYChanged: top.scrollViewDidScroll(contentY)
            onMovementStarted: screen.forceActiveFocus() // puts a keyboard on the screen away

            Column {
                id: column
                width: parent.width

                EmailEntryView {
                    width: parent.width
                    email: screen.email
                    isEdited: screen.isEmailEdited
                    onEdited: text => screen.emailEdited(text)
                }
                AttachmentCollectionView {
                    width: parent.width
                    images: screen.attachments
                    canDelete: true
                    onDeleted: index => screen.deleteAttachment(index)
                }
                Item {
                    width: 1
                    height: 30
                }
                InspectBugControl {
                    width: parent.width
                    onTapped: screen.inspectButtonPressed()
                }
                Item {
                    width: 1
                    height: 20
                }
                LabeledHyperlinkView {
                    width: parent.width
                }
                Item {
                    width: 1
                    height: 30
                }
            }
        }
    }
}
