import QtQuick
import Wexel.Screens

// One fact: what it is, and its value.
Item {
    id: view

    enum Separator {
        None = 1,
        Full = 2,
        Inset = 4
    }

    property string title
    property string detail
    property color detailColor: Theme.gunmetal
    property int separatorStyle: TitledLabelView.None

    width: parent ? parent.width : 0
    implicitHeight: separatorStyle === TitledLabelView.None ? detailLabel.y + detailLabel.height : separator.y + 1
    Accessible.role: Accessible.StaticText
    Accessible.name: title + ": " + detail

    Label {
        id: titleLabel
        anchors.horizontalCenter: parent.horizontalCenter
        width: parent.width * Theme.multiplierWidthWithoutSafeArea
        text: view.title
        wrapMode: Text.Wrap
        font: Theme.fitting(Theme.bold(12), text, width)
        color: Theme.coolGrey
        Accessible.ignored: true
    }
    Label {
        id: detailLabel
        anchors.top: titleLabel.bottom
        anchors.topMargin: 6
        anchors.horizontalCenter: parent.horizontalCenter
        width: parent.width * Theme.multiplierWidthWithoutSafeArea
        text: view.detail
        wrapMode: Text.Wrap
        font: Theme.semiBold(18)
        color: view.detailColor
        Accessible.ignored: true
    }
    Rule {
        id: separator
        visible: view.separatorStyle !== TitledLabelView.None
        y: detailLabel.y + detailLabel.height + (view.separatorStyle === TitledLabelView.Full ? 30 : 20)
        anchors.horizontalCenter: parent.horizontalCenter
        width: view.separatorStyle === TitledLabelView.Full ? parent.width : parent.width * Theme.multiplierWidthWithoutSafeArea
    }
}
