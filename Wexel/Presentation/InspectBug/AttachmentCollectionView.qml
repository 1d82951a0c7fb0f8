import QtQuick
import Wexel.Screens

// What is attached, as a row of cards.
FocusScope {
    id: strip

    property var images: []
    property bool canDelete: false
    property alias titleView: title

    signal deleted(int index)

    implicitHeight: bottomRule.y + bottomRule.height

    Rule {
        id: topRule
        width: parent.width * Theme.multiplierWidthWithoutSafeArea
        anchors.horizontalCenter: parent.horizontalCenter
    }
    SectionHeaderView {
        id: title
        anchors.top: topRule.bottom
        width: parent.width
        text: qsTranslate("Wexel", "Attachment")
    }
    ListView {
        id: collection
        anchors.top: title.bottom
        width: parent.width
        height: 170
        orientation: ListView.Horizontal
        leftMargin: LayoutMirroring.enabled ? 0 : 40
        rightMargin: 40 - leftMargin
        boundsBehavior: Flickable.StopAtBounds
        interactive: contentWidth + leftMargin + rightMargin > width
        model: strip.images

        delegate: WXLImageAttachmentCell {
            required property int index
            required property var modelData

            image: modelData
            canDelete: strip.canDelete // qmllint disable unqualified
            onDeletePressed: strip.deleted(index) // qmllint disable unqualified
        }
    }
    Rule {
        id: bottomRule
        anchors.top: collection.bottom
        width: parent.width * Theme.multiplierWidthWithoutSafeArea
        anchors.horizontalCenter: parent.horizontalCenter
    }
}
