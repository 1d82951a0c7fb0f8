import QtQuick
import Cafe

/// A group of choices of which exactly one is taken.
Column {
    id: group

    required property string name
    required property var choices
    property int chosen: 0

    spacing: 10

    Body {
        text: group.name
        font.bold: true
    }
    Flow {
        width: parent.width
        spacing: 8

        Repeater {
            model: group.choices
            onItemAdded: (index, item) => (item as CategoryChip).clicked.connect(() => group.chosen = index)

            CategoryChip {
                required property var modelData
                required property int index

                objectName: "choice:" + modelData.name
                text: modelData.cents > 0 ? qsTr("%1 +%2").arg(modelData.name).arg((modelData.cents / 100).toFixed(2))
                                          : modelData.name
                checked: index === 0
            }
        }
    }
}
