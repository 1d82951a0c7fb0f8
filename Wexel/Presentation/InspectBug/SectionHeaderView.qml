import QtQuick
import Wexel.Screens

// The name of a section; a change of it cross-fades.
Item {
    id: header

    property string text
    readonly property real fadeMilliseconds: 100

    implicitHeight: 20 + label.implicitHeight + 20
    Accessible.role: Accessible.Heading
    Accessible.name: text
    onTextChanged: {
        gone.text = label.text;
        label.text = text;
        if (gone.text.length > 0)
            fade.restart();
    }

    component Title: Label {
        anchors.horizontalCenter: parent.horizontalCenter
        y: 20
        width: parent.width * 13 / 15
        elide: Text.ElideRight
        font: Theme.semiBold(20)
        color: Theme.black
        Accessible.ignored: true
    }
    Title {
        id: label
    }
    Title {
        id: gone
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
