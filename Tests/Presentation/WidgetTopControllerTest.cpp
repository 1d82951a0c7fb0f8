#include <gtest/gtest.h>

#include <QDialog>
#include <QMainWindow>
#include <QPushButton>
#include <QSplitter>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTextEdit>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "Presentation/Helpers/TopController.h"

using namespace wexel;

TEST(WidgetTopControllerTest, pagesWithinPagesAreFollowed)
{
    QMainWindow window;
    auto *stack = new QStackedWidget;
    auto *tabs = new QTabWidget;
    auto *text = new QTextEdit;
    tabs->addTab(new QTreeWidget, QStringLiteral("one"));
    tabs->addTab(text, QStringLiteral("two"));
    tabs->setCurrentIndex(1);
    auto *button = new QPushButton;
    stack->addWidget(button);
    stack->addWidget(tabs);
    window.setCentralWidget(stack);
    window.resize(400, 300);
    window.show();
    EXPECT_EQ(topController(), button);
    stack->setCurrentIndex(1);
    EXPECT_EQ(topController(), text);
    EXPECT_EQ(topControllerName(), QStringLiteral("QTextEdit"));
}

TEST(WidgetTopControllerTest, aSplitterShowsItsLastVisiblePart)
{
    QSplitter splitter;
    auto *tree = new QTreeWidget;
    auto *text = new QTextEdit;
    splitter.addWidget(tree);
    splitter.addWidget(text);
    splitter.resize(400, 300);
    splitter.show();
    EXPECT_EQ(topController(), text);
    text->hide();
    EXPECT_EQ(topController(), tree);
}

TEST(WidgetTopControllerTest, aSmallContainerIsNoScreenAndAModalDialogComesFirst)
{
    QWidget window;
    window.resize(400, 300);
    QVBoxLayout layout(&window);
    layout.addWidget(new QTextEdit);
    auto *tabs = new QTabWidget(&window);
    tabs->addTab(new QTreeWidget, QStringLiteral("small"));
    tabs->setMaximumHeight(60);
    layout.addWidget(tabs);
    window.show();
    EXPECT_EQ(topController(), &window);
    QDialog dialog(&window);
    dialog.setModal(true);
    dialog.show();
    EXPECT_EQ(topController(), &dialog);
    EXPECT_EQ(topControllerName(), QStringLiteral("QDialog"));
    dialog.hide();
    EXPECT_EQ(topController(), &window);
}

TEST(WidgetTopControllerTest, withoutAWindowThereIsNoController)
{
    EXPECT_EQ(topController(), nullptr);
    EXPECT_EQ(topControllerName(), QString());
}
