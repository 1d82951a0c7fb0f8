#include "FindBar.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabWidget>

#include "Appearance.h"
#include "NotePage.h"

FindBar::FindBar(const QTabWidget &notes) : m_notes(notes), m_text(new QLineEdit), m_result(new QLabel)
{
    setMovable(false);
    setIconSize({18, 18});
    addWidget(m_text);
    addAction(namedIcon(QStringLiteral("up")), tr("Previous (Shift+F3)"), tr("Shift+F3"), this,
              [this] { step(QTextDocument::FindBackward); });
    addAction(namedIcon(QStringLiteral("down")), tr("Next (F3)"), tr("F3"), this, [this] { step({}); });
    addWidget(m_result);
    m_result->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    addAction(namedIcon(QStringLiteral("close")), tr("Close (Esc)"), tr("Esc"), this, [this] { close(); });
    m_text->setPlaceholderText(tr("Find in this note"));
    m_text->setFixedWidth(320);
    connect(m_text, &QLineEdit::textEdited, this, &FindBar::search);
    connect(m_text, &QLineEdit::returnPressed, this, [this] { step({}); });
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

QPlainTextEdit &FindBar::editor() const
{
    return qobject_cast<NotePage *>(m_notes.currentWidget())->editor();
}

void FindBar::close()
{
    hide();
    editor().setFocus();
}

void FindBar::search()
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
    editor().moveCursor(direction == QTextDocument::FindBackward ? QTextCursor::End : QTextCursor::Start);
    if (editor().find(m_text->text(), direction))
        return m_result->setText(tr("Went around"));
    editor().setTextCursor(before);
    m_result->setText(tr("Not found"));
}
