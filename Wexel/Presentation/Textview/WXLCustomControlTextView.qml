import QtQuick
import Wexel.Screens

// A text of several lines that is typed, pasted or dropped; Tab leaves it.
TextEdit {
    id: edit

    readonly property real inset: 8 // above and below the text
    readonly property real sideInset: 5

    topPadding: inset
    bottomPadding: inset
    leftPadding: sideInset
    rightPadding: sideInset
    wrapMode: TextEdit.Wrap
    textFormat: TextEdit.PlainText
    activeFocusOnTab: true
    selectByMouse: true
    selectionColor: Theme.lightBlue
    font: Theme.regular(18)
    color: Theme.black
    Accessible.role: Accessible.EditableText
    Accessible.multiLine: true
    Keys.onTabPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
    Keys.onBacktabPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)

    DropArea {
        anchors.fill: parent
        keys: ["text/plain"]
        onDropped: drop => {
            edit.insert(edit.positionAt(drop.x, drop.y), drop.text);
            drop.accept(Qt.CopyAction);
        }
    }
}
