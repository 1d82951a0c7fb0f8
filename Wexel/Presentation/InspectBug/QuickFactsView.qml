import QtQuick
import Wexel.Screens

// The host's own words about the report.
Item {
    id: view

    property string quickFacts
    property alias titleView: title

    implicitHeight: facts.y + facts.height + 5

    SectionHeaderView {
        id: title
        width: parent.width
        text: qsTranslate("Wexel", "Quick Facts")
    }
    Label {
        id: facts
        anchors.top: title.bottom
        anchors.topMargin: 10
        anchors.horizontalCenter: parent.horizontalCenter
        width: parent.width * Theme.multiplierWidthWithoutSafeArea
        text: view.quickFacts
        wrapMode: Text.Wrap
        font: Theme.regular(16)
        color: Theme.gunmetal
    }
}
