#include "NoteEditor.h"

#include <QFontDatabase>
#include <QTextBlock>

#include "Appearance.h"
#include "MarkdownHighlighter.h"

NoteEditor::NoteEditor(QWidget *parent) : QPlainTextEdit(parent)
{
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    document()->setDocumentMargin(22);
    setCursorWidth(2);
    new MarkdownHighlighter(document());
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, &NoteEditor::mark);
    mark();
}

void NoteEditor::setFontSize(int points)
{
    QFont changed = font();
    changed.setPointSize(points);
    setFont(changed);
    setTabStopDistance(4 * fontMetrics().horizontalAdvance(u' '));
}

void NoteEditor::setWordWrap(bool wrap)
{
    setLineWrapMode(wrap ? WidgetWidth : NoWrap);
}

void NoteEditor::setMatches(const QList<QTextCursor> &matches)
{
    m_matches = matches;
    mark();
}

void NoteEditor::appendParagraph(const QString &text)
{
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    cursor.movePosition(QTextCursor::End);
    if (!cursor.block().text().isEmpty())
        cursor.insertText(QStringLiteral("\n\n"));
    cursor.insertText(text + u'\n');
    cursor.endEditBlock();
    setTextCursor(cursor);
}

void NoteEditor::mark()
{
    ExtraSelection line;
    line.cursor = textCursor();
    line.cursor.clearSelection();
    line.format.setBackground(Ink::currentLine);
    line.format.setProperty(QTextFormat::FullWidthSelection, true);
    QList<ExtraSelection> selections{line};
    QTextCharFormat found;
    found.setBackground(Ink::match);
    for (const QTextCursor &match : std::as_const(m_matches))
        selections.append({match, found});
    setExtraSelections(selections);
}
