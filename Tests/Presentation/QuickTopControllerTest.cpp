#include <gtest/gtest.h>

#include "Platform/HostClassName.h"
#include "Presentation/Helpers/TopController.h"
#include "Presentation/QuickHost.h"

using namespace wexel;

namespace {

class QuickTopControllerTest : public testing::Test
{
protected:
    QuickTopControllerTest()
    {
        host.addDocument("CartPage.qml", "Page { property int total: 1; Label { text: total } }\n");
        host.addDocument("MenuPage.qml", "Item { Text { text: 'menu' } }\n");
    }
    [[nodiscard]] std::string topOf(const QByteArray &content)
    {
        host.show("ApplicationWindow { width: 300; height: 400; visible: true; title: 'host'\n" + content
                  + "}\n");
        return topControllerName().toStdString();
    }

    QuickHost host;
};

} // namespace

TEST_F(QuickTopControllerTest, aStackViewShowsItsCurrentItem)
{
    EXPECT_EQ(topOf("header: ToolBar {}\n"
                    "function order() { stack.push('CartPage.qml', {}, StackView.Immediate) }\n"
                    "StackView { id: stack; anchors.fill: parent; initialItem: MenuPage {} }"),
              "MenuPage");
    QMetaObject::invokeMethod(host.window, "order");
    EXPECT_EQ(topControllerName(), QStringLiteral("CartPage"));
}

TEST_F(QuickTopControllerTest, containersWithinContainersAreFollowed)
{
    EXPECT_EQ(topOf("ColumnLayout { anchors.fill: parent\n"
                    "  TabBar { Layout.fillWidth: true; TabButton { text: 'a' } }\n"
                    "  StackLayout { objectName: 'layout'; currentIndex: 1; Layout.fillWidth: true; "
                    "Layout.fillHeight: true\n"
                    "    CartPage {}\n"
                    "    SwipeView { currentIndex: 1; Rectangle {} Loader { source: 'MenuPage.qml' } }\n"
                    "  }\n"
                    "}"),
              "MenuPage");
    host.named("layout")->setProperty("currentIndex", 0);
    EXPECT_EQ(topControllerName(), QStringLiteral("CartPage"));
}

TEST_F(QuickTopControllerTest, aSplitViewShowsItsLastItem)
{
    EXPECT_EQ(topOf("SplitView { anchors.fill: parent; MenuPage { SplitView.preferredWidth: 90 }\n"
                    "  CartPage { SplitView.fillWidth: true } Item { visible: false } }"),
              "CartPage");
}

TEST_F(QuickTopControllerTest, aLoadersPageThatFillsTheWindowIsAScreen)
{
    EXPECT_EQ(
        topOf("Rectangle { anchors.fill: parent; Loader { anchors.fill: parent; source: 'CartPage.qml' } }"),
        "CartPage");
}

TEST_F(QuickTopControllerTest, aWindowWithoutScreensIsTheScreen)
{
    EXPECT_EQ(
        topOf("property int ownProperty: 1\n"
              "Rectangle { anchors.fill: parent } MenuPage { width: 30; height: 30 } Button { text: 'x' }"),
        "Main");
    EXPECT_EQ(topController(), host.window);
    EXPECT_EQ(topController(nullptr), nullptr);
}

TEST_F(QuickTopControllerTest, theTopmostDialogLiesOverTheScreensButToolTipsAndListsDoNot)
{
    host.addDocument("PayDialog.qml", "Dialog { property int sum; modal: true; width: 200; height: 100 }\n");
    // Without its indicator, whose texture Qt's software renderer loses with the window.
    EXPECT_EQ(topOf("StackView { anchors.fill: parent; initialItem: CartPage {} }\n"
                    "PayDialog { objectName: 'dialog' }\n"
                    "Drawer { objectName: 'drawer'; width: 80; height: 400 }\n"
                    "ComboBox { indicator: null; model: ['a']; ToolTip { objectName: 'tip'; text: 'tip' }\n"
                    "           Component.onCompleted: popup.open() }"),
              "CartPage");
    QMetaObject::invokeMethod(host.named("tip"), "open");
    EXPECT_TRUE(waitUntil([this] { return host.named("tip")->property("opened").toBool(); }));
    EXPECT_EQ(topControllerName(), QStringLiteral("CartPage"));
    QMetaObject::invokeMethod(host.named("dialog"), "open");
    EXPECT_TRUE(waitUntil([] { return topControllerName() == QStringLiteral("PayDialog"); }))
        << qPrintable(topControllerName());
    QMetaObject::invokeMethod(host.named("drawer"), "open");
    EXPECT_TRUE(waitUntil([] { return topControllerName() == QStringLiteral("Drawer"); }))
        << qPrintable(topControllerName());
}

TEST_F(QuickTopControllerTest, typesKeepTheNamesOfTheirDocuments)
{
    host.show(
        "ApplicationWindow { width: 100; height: 100; visible: true\n"
        "  StackView { objectName: 'StackView' } Rectangle { objectName: 'Rectangle'; property int own }\n"
        "  CartPage { objectName: 'CartPage'; property int other } Item { objectName: 'Item' } }");
    for (const char *name : {"StackView", "Rectangle", "CartPage", "Item"})
        EXPECT_EQ(hostClassName(host.named(name)->metaObject()), QString::fromUtf8(name));
    EXPECT_EQ(hostClassName(&QObject::staticMetaObject), QStringLiteral("QObject"));
    EXPECT_FALSE(isHostQmlType(host.named("StackView")->metaObject()));
    EXPECT_TRUE(isHostQmlType(host.named("CartPage")->metaObject()));
}
