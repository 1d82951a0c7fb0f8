pragma Singleton

import QtQuick

/// Colours, sizes and the few texts that every page formats alike.
QtObject {
    readonly property color canvas: "#FAF6F0"
    readonly property color surface: "#FFFFFF"
    readonly property color ink: "#2B2320"
    readonly property color inkSoft: "#6B5D53"
    readonly property color line: "#E7DED3"
    readonly property color sunken: "#F1EAE0"
    readonly property color primary: "#2F5D50"
    readonly property color primaryPressed: "#244A40"
    readonly property color primarySoft: "#E1EBE5"
    readonly property color accent: "#B4532A"
    readonly property color focus: "#B4532A"

    readonly property int margin: 20
    readonly property int gap: 12
    readonly property int radius: 16
    readonly property int barHeight: 64
    readonly property int columnWidth: 720

    readonly property int captionSize: 12
    readonly property int bodySize: 14
    readonly property int headingSize: 16
    readonly property int titleSize: 25

    /// Keeps a page's content to a column in the middle of a wide window.
    function sideMargin(width: real): int {
        return Math.max(margin, (width - columnWidth) / 2);
    }

    function price(cents: int): string {
        return "€ " + (cents / 100).toFixed(2);
    }
}
