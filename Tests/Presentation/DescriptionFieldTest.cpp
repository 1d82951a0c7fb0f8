// The description as the keyboard, the clipboard, an input method and the pointer change it.

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QMimeData>

#include "Presentation/Screens.h"
#include "Presentation/ScreensInLanguages.h"
#include "Presentation/Textview/WXLResizingTextView.h"

using namespace wexel;

namespace {

struct DescriptionField : testing::Test {
    FlowInLanguage flow{"en", {390, 844}};
    QQuickItem *screen = flow.show("compose");
    WXLResizingTextView *view = screen->property("resizingTextView").value<WXLResizingTextView *>();
    QQuickItem *edit = nullptr;

    void SetUp() override
    {
        view->becomeFirstResponder();
        edit = window()->activeFocusItem();
        ASSERT_TRUE(edit->inherits("QQuickTextEdit"));
        expectPlaceholder();
    }
    [[nodiscard]] QQuickWindow *window() const { return screen->window(); }
    void key(Qt::Key code, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(window(), code, modifiers);
    }
    void press(QKeySequence::StandardKey keys) const { QTest::keySequence(window(), keys); }
    void type(const char *text) const
    {
        for (const char *letter = text; *letter != 0; ++letter)
            QTest::keyClick(window(), *letter);
    }
    void compose(const QString &unfinished, const QString &finished = {}) const
    {
        QInputMethodEvent event(unfinished, {});
        event.setCommitString(finished);
        QCoreApplication::sendEvent(edit, &event);
    }
    /// At the beginning.
    void drop(const QString &text) const
    {
        QMimeData data;
        data.setText(text);
        const QPointF place = edit->mapToScene({2, 12});
        QDragEnterEvent enter(place.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(window(), &enter);
        QDropEvent dropped(place, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(window(), &dropped);
    }
    [[nodiscard]] bool showsPlaceholder() const
    {
        for (const QQuickItem *child : edit->parentItem()->childItems()) {
            if (child->inherits("QQuickText") && child->isVisible())
                return child->property("text") == QStringLiteral("Describe the bug and tap Submit");
        }
        return false;
    }
    void expectPlaceholder() const
    {
        EXPECT_TRUE(showsPlaceholder());
        EXPECT_EQ(view->shownText(), QStringLiteral("Describe the bug and tap Submit"));
        EXPECT_EQ(edit->property("cursorPosition"), 0);
        EXPECT_EQ(edit->property("selectedText"), QString());
    }
    void expectText(const QString &text) const
    {
        EXPECT_FALSE(showsPlaceholder());
        EXPECT_EQ(view->shownText(), text);
    }
};

TEST_F(DescriptionField, TypingReplacesThePlaceholderAndDeletingAllBringsItBack)
{
    for (const Qt::Key idle : {Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Right, Qt::Key_End})
        key(idle);
    press(QKeySequence::SelectAll);
    expectPlaceholder();
    type("red");
    expectText(QStringLiteral("red"));
    key(Qt::Key_Backspace);
    expectText(QStringLiteral("re"));
    press(QKeySequence::SelectAll);
    key(Qt::Key_Delete);
    expectPlaceholder();
    type("x");
    expectText(QStringLiteral("x"));
}

TEST_F(DescriptionField, UndoAndRedoGoBetweenTextAndPlaceholder)
{
    press(QKeySequence::Undo);
    expectPlaceholder();
    type("red");
    press(QKeySequence::Undo);
    expectPlaceholder();
    press(QKeySequence::Redo);
    expectText(QStringLiteral("red"));
}

TEST_F(DescriptionField, TakesFromTheClipboardButGivesNoPlaceholderToIt)
{
    QClipboard *clipboard = QGuiApplication::clipboard();
    clipboard->setText(QStringLiteral("two\nlines"));
    press(QKeySequence::SelectAll);
    press(QKeySequence::Copy);
    press(QKeySequence::Cut);
    EXPECT_EQ(clipboard->text(), QStringLiteral("two\nlines"));
    expectPlaceholder();
    press(QKeySequence::Paste);
    expectText(QStringLiteral("two\nlines"));
    press(QKeySequence::SelectAll);
    press(QKeySequence::Cut);
    expectPlaceholder();
    clipboard->setText(QString());
    press(QKeySequence::Paste);
    expectPlaceholder();
    auto *styled = new QMimeData;
    styled->setHtml(QStringLiteral("<b style='font-size:90px'>bold</b>"));
    styled->setText(QStringLiteral("bold"));
    clipboard->setMimeData(styled);
    press(QKeySequence::Paste);
    expectText(QStringLiteral("bold"));
}

TEST_F(DescriptionField, TakesWhatIsDroppedWhereItIsDropped)
{
    drop(QStringLiteral("red"));
    expectText(QStringLiteral("red"));
    drop(QStringLiteral("not "));
    expectText(QStringLiteral("not red"));
    drop(QString());
    expectText(QStringLiteral("not red"));
}

TEST_F(DescriptionField, AnInputMethodHidesThePlaceholderWhileItComposes)
{
    compose(QStringLiteral("\u304b"));
    EXPECT_FALSE(showsPlaceholder());
    compose(QString());
    expectPlaceholder();
    compose(QStringLiteral("\u304b"));
    compose(QString(), QStringLiteral("\u706b"));
    expectText(QStringLiteral("\u706b"));
}

} // namespace
