#include "FindBar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <QToolButton>

#include "Appearance.h"
#include "NoteEditor.h"
#include "NotePage.h"

FindBar::FindBar(const QTabWidget &notes, QWidget *parent)
    : QFrame(parent)
    , m_notes(notes)
    , m_text(new QLineEdit)
    , m_result(new QLabel)
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(14, 7, 10, 7);
    row->addWidget(m_text, 1);
    addButton(QStringLiteral("up"), tr("Previous (Shift+Enter)"),
              [this] { step(QTextDocument::FindBackward); });
    addButton(QStringLiteral("down"), tr("Next (Enter)"), [this] { step({}); });
    row->addWidget(m_result, 1);
    addButton(QStringLiteral("close"), tr("Close (Esc)"), [this] { close(); });
    m_text->setPlaceholderText(tr("Find in this note"));
    connect(m_text, &QLineEdit::textEdited, this, &FindBar::searchFromSelection);
    hide();
}

void FindBar::open()
{
    const QString selected = editor().textCursor().selectedText();
    if (!selected.isEmpty() && !selected.contains(QChar::ParagraphSeparator))
        m_text->setText(selected);
    m_result->clear();
    show();
    m_text->setFocus();
    m_text->selectAll();
}

void FindBar::keyPressEvent(QKeyEvent *event)
{
    const bool back = event->modifiers().testFlag(Qt::ShiftModifier);
    if (event->key() == Qt::Key_Escape)
        close();
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        step(back ? QTextDocument::FindBackward : QTextDocument::FindFlags());
    else
        QFrame::keyPressEvent(event);
}

void FindBar::addButton(const QString &icon, const QString &toolTip, const std::function<void()> &action)
{
    auto *button = new QToolButton;
    button->setIcon(namedIcon(icon));
    button->setToolTip(toolTip);
    button->setFocusPolicy(Qt::NoFocus);
    connect(button, &QToolButton::clicked, this, action);
    layout()->addWidget(button);
}

QPlainTextEdit &FindBar::editor() const
{
    return qobject_cast<NotePage *>(m_notes.currentWidget())->editor();
}

void FindBar::close()
{
    hide();
    editor().setFocus();
}

void FindBar::searchFromSelection()
{
    QTextCursor cursor = editor().textCursor(); // one more letter may still match what is selected
    cursor.setPosition(cursor.selectionStart());
    editor().setTextCursor(cursor);
    step({});
}

void FindBar::step(QTextDocument::FindFlags direction)
{
    const QTextCursor before = editor().textCursor();
    m_result->clear();
    if (m_text->text().isEmpty() || editor().find(m_text->text(), direction))
        return;
    const bool back = direction.testFlag(QTextDocument::FindBackward);
    editor().moveCursor(back ? QTextCursor::End : QTextCursor::Start);
    if (editor().find(m_text->text(), direction))
        return m_result->setText(back ? tr("Continued from the end") : tr("Continued from the start"));
    editor().setTextCursor(before);
    m_result->setText(tr("Not found"));
}
