import QtQuick
import Wexel.Screens

// What the application may do on this device.
Item {
    id: view

    property var grantedPermissions: []
    property string permissionsDescription
    property alias titleView: title

    implicitHeight: bottomRule.y + 1

    Rule {
        id: topRule
        width: parent.width * Theme.multiplierWidthWithoutSafeArea
        anchors.horizontalCenter: parent.horizontalCenter
    }
    SectionHeaderView {
        id: title
        anchors.top: topRule.bottom
        width: parent.width
        text: qsTranslate("Wexel", "Granted permissions")
    }
    Column {
        id: stack
        anchors.top: title.bottom
        width: parent.width
        spacing: 8

        Repeater {
            model: view.grantedPermissions

            PermissionSwitchView {
                required property string modelData
                permission: modelData
            }
        }
    }
    Label {
        id: description
        anchors.top: stack.bottom
        anchors.topMargin: view.grantedPermissions.length > 0 ? 18 : 5
        anchors.horizontalCenter: parent.horizontalCenter
        width: parent.width * Theme.multiplierWidthWithoutSafeArea
        text: view.permissionsDescription
        wrapMode: Text.Wrap
        font: Theme.bold(11)
        color: Theme.coolGrey
    }
    Rule {
        id: bottomRule
        anchors.top: description.bottom
        anchors.topMargin: 24
        anchors.horizontalCenter: parent.horizontalCenter
        width: parent.width * Theme.multiplierWidthWithoutSafeArea
    }
}
