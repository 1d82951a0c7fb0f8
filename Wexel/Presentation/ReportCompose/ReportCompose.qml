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
    Item {
        id: rest // has the keyboard while no field has, which puts one on the screen away
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
            readonly property Item focused: Window.activeFocusItem
            onFocusedChanged: { // by the keyboard, maybe below the edge
                if (!focused || moving || !column.contains(column.mapFromItem(focused, 0, 0)))
                    return;
                const top = focused.mapToItem(column, 0, 0).y;
                if (top < contentY)
                    contentY = Math.max(0, top - 20);
                else if (top + focused.height > contentY + height)
                    contentY = Math.min(contentHeight - height, top + focused.height + 20 - height);
            }
            onMovementStarted: rest.forceActiveFocus()

            TapHandler {
                onTapped: rest.forceActiveFocus()
            }

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
                    onDeleted: index => {
                        const hadKeyboard = activeFocus;
                        screen.deleteAttachment(index);
                        if (hadKeyboard)
                            inspect.forceActiveFocus(Qt.TabFocusReason);
                    }
                }
                Item {
                    width: 1
                    height: 30
                }
                InspectBugControl {
                    id: inspect
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
