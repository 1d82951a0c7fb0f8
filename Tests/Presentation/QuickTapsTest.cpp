#include <gtest/gtest.h>

#include <QRasterWindow>

#include "Presentation/QuickHost.h"
#include "Presentation/Taps.h"

using namespace wexel;

namespace {

/// Handles a touch for a second, and leaves it to Qt to make a mouse press of it.
struct SlowWindow : QRasterWindow {
    explicit SlowWindow(SetClock &clock) : clock(clock) { }
    void touchEvent(QTouchEvent *event) override
    {
        clock.time = clock.time.addSecs(1);
        event->ignore();
    }
    void mousePressEvent(QMouseEvent * /*event*/) override { ++mousePresses; }
    SetClock &clock;
    int mousePresses = 0;
};

struct QuickTapsTest : testing::Test {
    QuickTapsTest()
    {
        host.addDocument("Title.qml", "Text { text: 'title'; font.pixelSize: 20 }\n");
        host.addDocument("CafeButton.qml", "Button { width: 100; height: 40; contentItem: Title {} }\n");
        host.addDocument("Chip.qml",
                         "Rectangle { width: 60; height: 30; Text { text: 'tea' }\n"
                         "  MouseArea { anchors.fill: parent } }\n");
        host.addDocument("Heart.qml", "Rectangle { width: 30; height: 30; TapHandler {} }\n");
        host.addDocument("CartLine.qml", "Item { width: 100; height: 20; Row { Text { text: 'line' } } }\n");
    }
    void show(const QByteArray &content)
    {
        host.show("ApplicationWindow { width: 400; height: 400; visible: true\n" + content + "}\n");
    }
    [[nodiscard]] QQuickItem *item(const char *name) const
    {
        return qobject_cast<QQuickItem *>(host.named(name));
    }
    [[nodiscard]] std::string classAt(const char *name, QPointF place = {0.5, 0.5})
    {
        return taps.classAt(item(name), place);
    }

    QuickHost host;
    Taps taps;
};

} // namespace

TEST_F(QuickTapsTest, aControlOrAComponentOfTheHostIsNamed)
{
    host.addDocument(
        "CartPage.qml",
        "Page { property int total; property Chip chip; property string note; property CafeButton buy\n"
        "  CafeButton { objectName: 'cafe' }\n"
        "  Button { objectName: 'button'; x: 110; width: 80; height: 40; text: 'Plain' }\n"
        "  SpinBox { objectName: 'spin'; y: 50; width: 120; height: 40; editable: true }\n"
        "  TextField { objectName: 'field'; x: 130; y: 50; width: 100; height: 40; placeholderText: 'n' }\n"
        "  Chip { objectName: 'chip'; y: 100; property int own }\n"
        "  Rectangle { objectName: 'inline'; x: 70; y: 100; width: 30; height: 30; TapHandler {} }\n"
        "  ItemDelegate { objectName: 'row'; x: 110; y: 100; width: 150; height: 30\n"
        "    Heart { objectName: 'heart' } }\n"
        "  ListView { objectName: 'list'; y: 150; width: 100; height: 60; model: 1; delegate: CartLine {} }\n"
        "  Button { objectName: 'off'; y: 300; enabled: false; text: 'Off' }\n"
        "  Label { objectName: 'label'; x: 110; y: 150; text: 'A label' }\n"
        "  GroupBox { objectName: 'group'; x: 200; y: 150; width: 100; height: 90; title: 'Options' } }\n");
    show("StackView { anchors.fill: parent; initialItem: CartPage { objectName: 'page' } }");
    EXPECT_EQ(classAt("cafe"), "CafeButton");
    EXPECT_EQ(classAt("button"), "Button");
    EXPECT_EQ(classAt("spin"), "SpinBox");
    EXPECT_EQ(classAt("field"), "TextField");
    EXPECT_EQ(classAt("chip"), "Chip");
    EXPECT_EQ(classAt("inline"), "Rectangle");
    EXPECT_EQ(classAt("row"), "ItemDelegate");
    EXPECT_EQ(classAt("heart"), "Heart");
    EXPECT_EQ(classAt("list", {0.1, 0.1}), "CartLine");
    EXPECT_EQ(classAt("list", {0.5, 0.9}), "ListView");
    EXPECT_EQ(classAt("label"), "Label");
    EXPECT_EQ(classAt("group", {0.2, 0.1}), "GroupBox");
    EXPECT_EQ(classAt("off"), "CartPage") << "to which a disabled button leaves it";
    EXPECT_EQ(classAt("page", {0.5, 0.9}), "CartPage");
    // The second object-typed property is paired with the second of all names.
    EXPECT_EQ(taps.all().first(), QStringLiteral("CafeButton/CartPage/chip"));
    EXPECT_TRUE(taps.all().contains(QStringLiteral("Chip/CartPage/total")));
    EXPECT_EQ(taps.all().last(), QStringLiteral("CartPage/CartPage/"));
}

TEST_F(QuickTapsTest, whatTakesNoPressesLetsThemThrough)
{
    const QByteArray covers[] = {
        "Button { visible: false; width: 60; height: 30 }",
        "Button { enabled: false; width: 60; height: 30 }",
        "Button { opacity: 0; width: 60; height: 30 }",
        "MouseArea { enabled: false; width: 60; height: 30 }",
        "Rectangle { color: 'red'; width: 60; height: 30; HoverHandler {} TapHandler { enabled: false } }",
        "Item { width: 60; height: 30; Text { text: 'covered' } }",
        "CafeButton { z: -1 }",
        "Item { clip: true; width: 10; height: 10; CafeButton {} }",
        "ListView { x: -40; width: 40; height: 30; orientation: Qt.Horizontal; cacheBuffer: 400; model: 5\n"
        "  delegate: Button { width: 40; height: 30 } }",
        "Repeater { model: 1000; Rectangle { width: 60; height: 30 } }",
    };
    QByteArray content;
    for (const QByteArray &cover : covers) {
        const QByteArray number = QByteArray::number(content.count("chip"));
        content
            += "Item { y: 38 * " + number + "; Chip { objectName: 'chip" + number + "' }\n" + cover + "}\n";
    }
    show(content);
    for (int i = 0; i < int(std::size(covers)); ++i)
        EXPECT_EQ(classAt(("chip" + std::to_string(i)).c_str()), "Chip") << covers[i].constData();
}

TEST_F(QuickTapsTest, theTopmostOfSeveralIsNamedWhereItIsSeen)
{
    show("Window { visible: true; width: 400; height: 400 }\n"
         "CafeButton { z: 1; objectName: 'raised' } Chip { objectName: 'covered' }\n"
         "Button { objectName: 'turned'; x: 200; y: 100; width: 100; height: 20; rotation: 90 }\n"
         "Rectangle { objectName: 'passive'; y: 300; width: 40; height: 40; Title { objectName: 'title' } }");
    EXPECT_EQ(classAt("covered"), "CafeButton");
    EXPECT_EQ(taps.classAt(host.window, QPoint(250, 65)), "Button");
    EXPECT_EQ(taps.classAt(host.window, QPoint(205, 110)), "Main") << "where it was before it was turned";
    EXPECT_EQ(classAt("title"), "Title");
    EXPECT_EQ(classAt("passive", {0.9, 0.9}), "Rectangle");
}

TEST_F(QuickTapsTest, popupsLieOverTheScreens)
{
    host.addDocument("PayDialog.qml",
                     "Dialog { property int sum; property Button ok; modal: true; anchors.centerIn: parent\n"
                     "  width: 200; height: 150; standardButtons: Dialog.Ok; enter: null; exit: null\n"
                     "  Chip { objectName: 'chip' }\n"
                     "  property Item okItem: standardButton(Dialog.Ok) }\n");
    show("CafeButton { x: 300; objectName: 'below' }\n"
         "Item { id: page; anchors.fill: parent } CartLine { PayDialog { objectName: 'dialog'; parent: page "
         "} }\n"
         "Menu { objectName: 'menu'; y: 100; enter: null; exit: null; Action { text: 'Copy' } }\n"
         "ComboBox { objectName: 'combo'; width: 100; indicator: null; model: ['a']; popup.enter: null }");
    QMetaObject::invokeMethod(host.named("dialog"), "open");
    EXPECT_EQ(classAt("chip"), "Chip");
    EXPECT_EQ(taps.classAt(host.window, QPoint(200, 200)), "PayDialog");
    EXPECT_EQ(taps.classAt(host.named("dialog")->property("okItem").value<QQuickItem *>()), "Button");
    EXPECT_EQ(taps.all().last(), QStringLiteral("Button/PayDialog/sum"));
    QMetaObject::invokeMethod(host.named("dialog"), "open");
    EXPECT_EQ(classAt("below"), "Overlay");
    QMetaObject::invokeMethod(host.named("dialog"), "close");
    QMetaObject::invokeMethod(host.named("menu"), "open");
    EXPECT_EQ(classAt("below"), "CafeButton") << "not kept from presses by the menu";
    QMetaObject::invokeMethod(host.named("menu"), "open");
    EXPECT_EQ(taps.classAt(host.window, QPoint(20, 115)), "MenuItem");
    EXPECT_EQ(classAt("combo"), "ComboBox");
    ASSERT_TRUE(waitUntil([this] { return host.named("combo")->property("down").toBool(); }));
    EXPECT_EQ(taps.classAt(host.window, QPoint(20, 60)), "ItemDelegate");
}

TEST_F(QuickTapsTest, everyFingerCountsAndNothingThatQtMakesOfOne)
{
    show("Chip {} Heart { x: 100 }");
    const std::unique_ptr<QPointingDevice> device(QTest::createTouchDevice());
    const auto touch = [&](QWindow *window) {
        taps.clock.time = taps.clock.time.addSecs(1);
        return QTest::touchEvent(window, device.get());
    };
    touch(host.window).press(1, {30, 15});
    touch(host.window).move(1, {31, 15});
    touch(host.window).stationary(1).press(2, {110, 10});
    touch(host.window).release(1, {31, 15}).release(2, {110, 10});
    EXPECT_EQ(taps.all(), QStringList({QStringLiteral("Chip/Main/"), QStringLiteral("Heart/Main/")}));

    SlowWindow plain(taps.clock);
    plain.resize(100, 100);
    plain.show();
    touch(&plain).press(1, {30, 15});
    EXPECT_EQ(plain.mousePresses, 1);
    EXPECT_EQ(taps.all().size(), 3);
    QTabletEvent pen(QEvent::TabletPress, QPointingDevice::primaryPointingDevice(), {9, 9}, {9, 9}, 1, 0, 0,
                     0, 0, 0, {}, Qt::LeftButton, Qt::LeftButton);
    QCoreApplication::sendEvent(&plain, &pen);
    EXPECT_EQ(taps.all().size(), 4);
}

TEST_F(QuickTapsTest, aPressMayTakeItsOwnViewAway)
{
    show("Loader { id: loader; sourceComponent: Button { objectName: 'button'; width: 50; height: 50\n"
         "  onPressed: loader.sourceComponent = null } }");
    EXPECT_EQ(classAt("button"), "Button");
    EXPECT_EQ(item("button"), nullptr);
    EXPECT_EQ(taps.classAt(host.window, QPoint(25, 25)), "Main");
}
