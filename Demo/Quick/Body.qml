import QtQuick
import Cafe

/// Running text. Texts come from the service too, so markup in them stays text.
Text {
    textFormat: Text.PlainText
    color: Theme.ink
    font.pixelSize: Theme.bodySize
    elide: Text.ElideRight
}
