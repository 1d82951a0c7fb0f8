import QtQuick
import Wexel.Screens

// The field for the tester's e-mail address, and why one would give it.
Item {
    id: view

    property string email
    property bool isEdited

    signal edited(string text)

    implicitHeight: bottomRule.y + bottomRule.height

    Rule {
        id: topRule
        y: 4
        width: parent.width * Theme.multiplierWidthWithoutSafeArea
        anchors.horizontalCenter: parent.horizontalCenter
    }
    TextInput {
        id: field
        anchors.top: topRule.bottom
        anchors.topMargin: 22
        anchors.horizontalCenter: parent.horizontalCenter
        width: parent.width * Theme.multiplierWidthWithoutSafeArea
        height: Math.max(implicitHeight, hint.implicitHeight) // another script may take more
        verticalAlignment: TextInput.AlignVCenter
        clip: true
        horizontalAlignment: TextInput.AlignLeft
        text: view.email
        font: Theme.regular(18)
        // One that is there from an earlier report stays pale until it is edited.
        color: view.isEdited && text.length > 0 && text !== hint.text ? Theme.black : Theme.slate
        selectByMouse: true
        selectionColor: Theme.lightBlue
        activeFocusOnTab: true
        inputMethodHints: Qt.ImhEmailCharactersOnly | Qt.ImhNoAutoUppercase
        Accessible.role: Accessible.EditableText
        Accessible.name: hint.text
        Accessible.description: detail.text
        onTextChanged: { // assistive technology writes without an edit by the user
            if (text !== view.email)
                view.edited(text);
        }

        Label {
            id: hint
            width: parent.width
            visible: field.text.length === 0 && field.preeditText.length === 0
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            text: qsTranslate("Wexel", "Your email")
            fontSizeMode: Text.HorizontalFit
            minimumPixelSize: 18
            elide: Text.ElideRight
            font: field.font
            color: Theme.slate
            Accessible.ignored: true
        }
    }
    Label {
        id: detail
        anchors.top: field.bottom
        anchors.topMargin: 13
        anchors.horizontalCenter: parent.horizontalCenter
        width: parent.width * Theme.multiplierWidthWithoutSafeArea
        text: qsTranslate("Wexel", "Optional, if you're available for a follow-up")
        wrapMode: Text.Wrap
        font: Theme.regular(15)
        color: Theme.regularGrey
    }
    Rule {
        id: bottomRule
        anchors.top: detail.bottom
        anchors.topMargin: 20
        anchors.horizontalCenter: parent.horizontalCenter
        width: parent.width * Theme.multiplierWidthWithoutSafeArea
    }
    TapHandler {
        onTapped: {
            if (!field.activeFocus)
                field.forceActiveFocus();
        }
    }
}
