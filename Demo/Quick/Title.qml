import QtQuick
import Cafe

/// A heading in the serif face.
Text {
    textFormat: Text.PlainText
    color: Theme.ink
    font.family: "serif"
    font.pixelSize: Theme.titleSize
    elide: Text.ElideRight
    Accessible.role: Accessible.Heading
    Accessible.name: text
}
