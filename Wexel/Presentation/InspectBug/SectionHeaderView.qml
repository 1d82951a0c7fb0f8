import QtQuick
import Wexel.Screens

// The name of a section; a change of it cross-fades.
Item {
    id: header

    property string text
    property bool staysOneLine: false // a high one that stays in place would take the room
    readonly property real fadeMilliseconds: 100

    implicitHeight: 20 + label.height + 20
    Accessible.role: Accessible.Heading
    Accessible.name: text
    onTextChanged: {
        gone.text = label.text;
        label.text = text;
        if (gone.text.length > 0)
            fade.restart();
    }

    component Title: Label {
        id: title

        required property bool staysOneLine
        readonly property font whole: Theme.semiBold(20)

        anchors.horizontalCenter: parent.horizontalCenter
        y: 20
        width: parent.width * Theme.multiplierWidthWithoutSafeArea
        height: Math.max(implicitHeight, Math.floor(metrics.height)) // also when it is fitted
        verticalAlignment: Text.AlignVCenter
        wrapMode: staysOneLine ? Text.NoWrap : Text.Wrap
        fontSizeMode: staysOneLine ? Text.HorizontalFit : Text.FixedSize
        minimumPixelSize: 20
        elide: Text.ElideRight
        font: staysOneLine ? whole : Theme.fitting(whole, text, width)
        color: Theme.black
        Accessible.ignored: true

        FontMetrics {
            id: metrics
            font: title.whole
        }
    }
    Title {
        id: label
        staysOneLine: header.staysOneLine
    }
    Title {
        id: gone
        staysOneLine: header.staysOneLine
        opacity: 0
    }
    ParallelAnimation {
        id: fade
        NumberAnimation {
            target: label
            property: "opacity"
            from: 0
            to: 1
            duration: header.fadeMilliseconds
        }
        NumberAnimation {
            target: gone
            property: "opacity"
            from: 1
            to: 0
            duration: header.fadeMilliseconds
        }
    }
}
