import QtQuick
import Wexel.Screens

// What the report will carry.
WXLInspectBugVC {
    id: screen

    function middle(view: Item): real {
        return view.mapToItem(screen, 0, view.height / 2).y;
    }
    function updateHeader() {
        header.text = headerText([middle(strip.titleView), middle(permissions.titleView), middle(facts.titleView)],
                                 middle(top));
    }

    Keys.onEscapePressed: screen.popped()

    Rectangle {
        anchors.fill: parent
        color: screen.backgroundColor
    }
    NavigationBar {
        id: bar
        width: parent.width
        title: qsTranslate("Wexel", "Inspect bug")
        leftItem: WXLImageBarButtonControl {
            image: "back-arrow"
            name: qsTranslate("Wexel", "Back")
            onTapped: screen.popped()
        }
    }
    RoundedPanel {
        anchors.top: bar.bottom
        anchors.topMargin: 12
        anchors.bottom: parent.bottom
        width: parent.width

        ShadowView {
            id: top
            z: 1
            width: parent.width
            height: header.implicitHeight

            SectionHeaderView {
                id: header
                width: parent.width
                height: parent.height
                staysOneLine: true
                text: qsTranslate("Wexel", "Essentials")
            }
        }
        FocusFrame {
            control: scroll
            z: 1
            anchors.fill: scroll
            anchors.margins: 3
        }
        Flickable {
            id: scroll
            anchors.top: top.bottom
            anchors.bottom: parent.bottom
            width: parent.width
            contentHeight: column.height
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            activeFocusOnTab: true
            Accessible.role: Accessible.Document
            Accessible.name: bar.title
            Keys.onUpPressed: contentY = Math.max(0, contentY - 60)
            Keys.onDownPressed: contentY = Math.max(0, Math.min(contentHeight - height, contentY + 60))
            onContentYChanged: {
                top.scrollViewDidScroll(contentY);
                screen.updateHeader();
            }

            Column {
                id: column
                width: parent.width

                Item {
                    width: 1
                    height: 6
                }
                Column {
                    width: parent.width
                    spacing: 20

                    TitledLabelView {
                        title: "OS"
                        detail: "iOS " + screen.viewModel.osVersion
                    }
                    TitledLabelView {
                        title: qsTranslate("Wexel", "DEVICE")
                        detail: screen.viewModel.device
                    }
                    TitledLabelView {
                        title: qsTranslate("Wexel", "APP VERSION")
                        detail: screen.viewModel.appVersion
                    }
                    TitledLabelView {
                        title: qsTranslate("Wexel", "NETWORK")
                        detail: screen.viewModel.network
                        detailColor: detail === qsTranslate("Wexel", "NOT AVAILABLE") ? Theme.silver : Theme.gunmetal
                    }
                    TitledLabelView {
                        title: qsTranslate("Wexel", "CURRENT VIEW")
                        detail: screen.viewModel.currentView
                        separatorStyle: TitledLabelView.Inset
                    }
                    TitledLabelView {
                        title: qsTranslate("Wexel", "LOCALE")
                        detail: screen.viewModel.locale
                        separatorStyle: TitledLabelView.Inset
                    }
                    TitledLabelView {
                        title: qsTranslate("Wexel", "AVAILABLE MEMORY")
                        detail: screen.viewModel.availableMemory
                    }
                    TitledLabelView {
                        title: qsTranslate("Wexel", "AVAILABLE STORAGE")
                        detail: screen.viewModel.availableStorage
                        separatorStyle: TitledLabelView.Inset
                    }
                    TitledLabelView {
                        title: qsTranslate("Wexel", "RESOLUTION")
                        detail: screen.viewModel.resolution
                        separatorStyle: TitledLabelView.Inset
                    }
                    TitledLabelView {
                        title: qsTranslate("Wexel", "WEXEL SDK VERSION")
                        detail: screen.viewModel.sdkVersion
                        separatorStyle: TitledLabelView.Full
                    }
                }
                Item {
                    width: 1
                    height: 10
                }
                AttachmentCollectionView {
                    id: strip
                    width: parent.width
                    images: screen.viewModel.attachments
                }
                Item {
                    width: 1
                    height: 28
                }
                GrantedPermissionsView {
                    id: permissions
                    width: parent.width
                    grantedPermissions: screen.viewModel.grantedPermissions
                    permissionsDescription: screen.viewModel.permissionsDescription
                }
                QuickFactsView {
                    id: facts
                    width: parent.width
                    quickFacts: screen.viewModel.quickFacts
                }
                Item {
                    width: 1
                    height: 40
                }
            }
        }
    }
}
