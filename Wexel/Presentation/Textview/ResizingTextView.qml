import QtQuick
import Wexel.Screens

WXLResizingTextView {
    id: view

    function measure() {
        const fitted = Math.max(edit.implicitHeight, isPlaceholderShown ? hint.implicitHeight + 2 * edit.inset : 0);
        textViewDidChange(fitted, 2 * edit.inset, metrics.height);
    }

    document: edit.textDocument
    implicitHeight: 20 + fieldHeight + 20
    onTextChanged: {
        if (edit.text !== text)
            edit.text = text;
        measuring.start();
    }
    onWidthChanged: measuring.start()
    onFocusWanted: edit.forceActiveFocus()
    onCaretWanted: edit.cursorPosition = edit.length
    Component.onCompleted: measure()

    Timer { // once the text is laid out
        id: measuring
        interval: 0
        onTriggered: view.measure()
    }
    Binding { // a text of the other direction does not begin where the hint ended
        target: edit
        property: "horizontalAlignment"
        value: TextEdit.AlignLeft
        when: view.LayoutMirroring.enabled
    }
    FontMetrics {
        id: metrics
        font: edit.font
    }
    Flickable {
        id: field
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.horizontalCenterOffset: -2.5
        y: 20
        width: parent.width * Theme.multiplierWidthWithoutSafeArea
        height: view.fieldHeight
        contentHeight: edit.height
        interactive: view.isScrollEnabled
        boundsBehavior: Flickable.StopAtBounds
        clip: true

        WXLCustomControlTextView {
            id: edit

            function showCaret() {
                const top = cursorRectangle.y - inset;
                const bottom = cursorRectangle.y + cursorRectangle.height + inset;
                if (field.contentY > top)
                    field.contentY = Math.max(0, top);
                else if (field.contentY + field.height < bottom)
                    field.contentY = bottom - field.height;
            }

            width: field.width
            height: Math.max(implicitHeight, field.height)
            Accessible.name: view.placeholder
            onTextChanged: view.text = text
            onCursorRectangleChanged: showCaret()
        }
        Label {
            id: hint
            x: edit.sideInset
            y: edit.inset
            width: field.width - 2 * edit.sideInset
            visible: view.isPlaceholderShown && edit.preeditText.length === 0
            text: view.placeholder
            lineHeight: view.lineHeightMultiple
            wrapMode: Text.Wrap
            font: edit.font
            color: Theme.slate
            Accessible.ignored: true
        }
    }
}
