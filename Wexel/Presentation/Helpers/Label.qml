import QtQuick

// A text, never mark-up, that begins where one begins to read.
Text {
    textFormat: Text.PlainText
    horizontalAlignment: Text.AlignLeft
}
