import QtQuick
import Cafe

/// Minus, number, plus.
Row {
    id: stepper

    required property int value
    required property string subject
    property int minimum: 0
    property int maximum: 20
    property int buttonSize: 36
    signal changed(int value)

    spacing: 2

    IconButton {
        objectName: "less"
        iconName: "minus"
        label: qsTr("One %1 less").arg(stepper.subject)
        implicitWidth: stepper.buttonSize
        implicitHeight: stepper.buttonSize
        enabled: stepper.value > stepper.minimum
        onClicked: stepper.changed(stepper.value - 1)
    }
    Body {
        width: 30
        height: stepper.buttonSize
        text: stepper.value
        font.bold: true
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        Accessible.role: Accessible.StaticText
        Accessible.name: qsTr("%1: %2").arg(stepper.subject).arg(stepper.value)
    }
    IconButton {
        objectName: "more"
        iconName: "plus"
        label: qsTr("One %1 more").arg(stepper.subject)
        implicitWidth: stepper.buttonSize
        implicitHeight: stepper.buttonSize
        enabled: stepper.value < stepper.maximum
        onClicked: stepper.changed(stepper.value + 1)
    }
}
