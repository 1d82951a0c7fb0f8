#include <gtest/gtest.h>

#include <QBoxLayout>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QQuickWidget>
#include <QRasterWindow>
#include <QSpinBox>
#include <QTabWidget>
#include <QTreeWidget>

#include "Presentation/Helpers/HostWindows.h"
#include "Presentation/QuickHost.h"
#include "Presentation/Taps.h"

using namespace wexel;

namespace {

struct WidgetTapsTest : testing::Test {
    WidgetTapsTest() { window.setGeometry(100, 100, 400, 400); }
    template <typename Widget>
    Widget *add()
    {
        auto *widget = new Widget;
        layout.addWidget(widget);
        return widget;
    }

    QWidget window;
    QVBoxLayout layout{&window};
    Taps taps;
};

} // namespace

TEST_F(WidgetTapsTest, aPartThatQtMadeStandsForItsWidget)
{
    auto *tree = add<QTreeWidget>();
    auto *spin = add<QSpinBox>();
    auto *tabs = add<QTabWidget>();
    tabs->addTab(new QPushButton, QStringLiteral("tab"));
    auto *combo = add<QComboBox>();
    combo->setEditable(true);
    combo->addItem(QStringLiteral("item"));
    auto *off = add<QPushButton>();
    off->setEnabled(false);
    window.show();
    EXPECT_EQ(taps.classAt(tree), "QTreeWidget");
    EXPECT_EQ(taps.classAt(tabs->currentWidget()), "QPushButton");
    EXPECT_EQ(taps.classAt(spin), "QSpinBox");
    EXPECT_EQ(taps.classAt(window.windowHandle(), tabs->pos() + QPoint(5, 5)), "QTabWidget");
    EXPECT_EQ(taps.classAt(off), "QWidget") << "a disabled widget leaves the press to its parent";
    EXPECT_EQ(taps.classAt(combo), "QComboBox");
    combo->showPopup();
    EXPECT_EQ(taps.classAt(static_cast<QWidget *>(combo->view())), "QComboBox");
}

TEST_F(WidgetTapsTest, popupsAndDialogsAreTappedButAPressBesideAMenuOnlyClosesIt)
{
    auto *button = add<QPushButton>();
    window.show();
    QMenu menu;
    menu.addAction(QStringLiteral("Copy"));
    menu.popup({150, 150});
    EXPECT_EQ(taps.classAt(button), "");
    EXPECT_FALSE(menu.isVisible());
    menu.popup({150, 150});
    EXPECT_EQ(taps.classAt(&menu), "QMenu");
    EXPECT_EQ(taps.all().last(), QStringLiteral("QMenu/QWidget/"));
    QDialog dialog(&window);
    dialog.setModal(true);
    QLineEdit edit(&dialog);
    dialog.show();
    EXPECT_EQ(taps.classAt(button), "") << "the dialog blocks it";
    EXPECT_EQ(taps.classAt(&edit), "QLineEdit");
    EXPECT_EQ(taps.all().last(), QStringLiteral("QLineEdit/QDialog/"));
}

TEST_F(WidgetTapsTest, scenesWithinWidgetsAreEntered)
{
    QuickHost host;
    host.addDocument("Chip.qml", "Rectangle { objectName: 'chip'; TapHandler {} }");
    host.addDocument("Scene.qml", "Item { Chip { x: 50; y: 50; width: 40; height: 40 } }");
    auto *first = add<QQuickWidget>();
    auto *scene = add<QQuickWidget>();
    for (auto *widget : {first, scene})
        widget->setSource(QUrl::fromLocalFile(host.folder.filePath(QStringLiteral("Scene.qml"))));
    host.show("Window { width: 100; height: 100; visible: true; Chip { anchors.fill: parent } }");
    QWidget *container = QWidget::createWindowContainer(host.window, &window);
    layout.addWidget(container);
    window.show();
    QWindow *handle = window.windowHandle();
    const QPoint chip(60, 60);
    EXPECT_EQ(taps.classAt(handle, scene->pos() + chip), "Chip");
    EXPECT_EQ(taps.classAt(handle, scene->pos() + QPoint(10, 10)), "QQuickWidget");
    EXPECT_EQ(taps.classAt(handle, container->geometry().center()), "Chip") << "by the window around it";
    EXPECT_EQ(taps.classAt(host.window, QPoint(9, 9)), "Chip") << "by itself";
}

TEST_F(WidgetTapsTest, onlyTheHostsOwnWindowsThatCanBeActiveCount)
{
    auto *button = add<QPushButton>();
    EXPECT_EQ(QGuiApplication::focusWindow(), nullptr);
    QRasterWindow unseen;
    unseen.resize(10, 10);
    taps.hook.wxl_hitTest(unseen, {1, 1});
    EXPECT_EQ(taps.all(), QStringList(QStringLiteral("QRasterWindow/QRasterWindow/")));
    window.show();
    QDialog other(nullptr);
    other.setGeometry(600, 100, 50, 50);
    other.show();
    EXPECT_EQ(taps.classAt(button), "QPushButton") << "which its press makes the active one";
    EXPECT_EQ(taps.all().last(), QStringLiteral("QPushButton/QWidget/"));
    for (const auto flags : {Qt::Tool | Qt::WindowDoesNotAcceptFocus, Qt::WindowFlags(Qt::ToolTip)}) {
        QWidget idle(nullptr, flags);
        idle.show();
        EXPECT_EQ(taps.classAt(&idle), "");
    }
    QRasterWindow banner;
    banner.setProperty(clickableWindowProperty, true);
    banner.resize(50, 50);
    banner.show();
    EXPECT_EQ(taps.classAt(&banner, QPoint(5, 5)), "");
    QWidget flow;
    flow.setProperty(displayWindowProperty, true);
    flow.show();
    QMenu menu(&flow);
    menu.addAction(QStringLiteral("of the flow"));
    menu.popup({150, 150});
    EXPECT_EQ(taps.classAt(&menu), "");
    EXPECT_EQ(taps.classAt(&flow), "");
    flow.activateWindow();
    EXPECT_EQ(taps.classAt(button), "") << "while the flow is active";
    flow.hide();
    EXPECT_EQ(taps.classAt(button), "QPushButton");
}

TEST_F(WidgetTapsTest, pressesWithinTenMillisecondsAreOne)
{
    window.show();
    const auto countAfter = [this](std::initializer_list<int> milliseconds) {
        const auto before = taps.all().size();
        for (const int later : milliseconds) {
            taps.clock.time = taps.clock.time.addMSecs(later);
            QTest::mouseClick(window.windowHandle(), Qt::LeftButton);
        }
        return taps.all().size() - before;
    };
    EXPECT_EQ(countAfter({1000, 5}), 1);
    EXPECT_EQ(countAfter({1000, 20}), 2);
    EXPECT_EQ(countAfter({1000, 8, 8, 8, 10, 8}), 1) << "a stream gives its first only";
    EXPECT_EQ(countAfter({11}), 1);
    EXPECT_EQ(countAfter({-3'600'000, 1000, -5, 5}), 2) << "a clock that was set back";
}
