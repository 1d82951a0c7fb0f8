import QtQuick
import QtQuick.Layouts
import Cafe

/// What a page says when it has nothing else to show, with one thing to do about it.
ColumnLayout {
    id: message

    required property string iconName
    required property string title
    property string explanation
    property string action
    signal acted

    spacing: 0

    Rectangle {
        Layout.alignment: Qt.AlignHCenter
        implicitWidth: 96
        implicitHeight: 96
        radius: 48
        color: Theme.sunken
        Image {
            anchors.centerIn: parent
            source: message.iconName ? "Icons/" + message.iconName + ".svg" : ""
            sourceSize.width: 40
            sourceSize.height: 40
            opacity: 0.7
            Accessible.ignored: true
        }
    }
    Title {
        Layout.fillWidth: true
        Layout.topMargin: 24
        text: message.title
        font.pixelSize: 20
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
    }
    Body {
        objectName: "explanation"
        Layout.fillWidth: true
        Layout.topMargin: 10
        text: message.explanation
        color: Theme.inkSoft
        lineHeight: 1.25
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
    CafeButton {
        objectName: "action"
        Layout.alignment: Qt.AlignHCenter
        Layout.topMargin: 24
        Layout.minimumWidth: 160
        visible: message.action.length > 0
        text: message.action
        onClicked: message.acted()
    }
}
