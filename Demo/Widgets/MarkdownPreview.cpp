#include "MarkdownPreview.h"

#include <QScrollBar>
#include <QTextBlock>
#include <QTextTable>

#include "Appearance.h"

namespace {

/// What Qt makes of Markdown is dense and black: gives the block air, and headings and quotes their look.
void polish(const QTextBlock &block, int points)
{
    static constexpr qreal scales[] = {1.0, 1.8, 1.35, 1.15, 1.0, 1.0, 1.0};
    const int level = block.blockFormat().headingLevel();
    const bool quote = block.blockFormat().hasProperty(QTextFormat::BlockQuoteLevel);
    QTextBlockFormat lines;
    QTextCharFormat letters;
    lines.setLineHeight(level > 0 ? 110 : 135, QTextBlockFormat::ProportionalHeight);
    if (level > 0) {
        lines.setTopMargin(level == 1 ? 0 : points * 1.5);
        lines.setBottomMargin(points * 0.5);
        letters.setFontPointSize(points * scales[level]);
    }
    if (level > 1 || quote)
        letters.setForeground(quote ? Ink::soft : Ink::accent);
    if (quote)
        letters.setFontItalic(true);
    QTextCursor cursor(block);
    cursor.mergeBlockFormat(lines);
    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    cursor.mergeCharFormat(letters);
}

void polish(QTextTable &table)
{
    QTextTableFormat format = table.format();
    format.setCellPadding(6);
    format.setBorderCollapse(true);
    format.setBorder(1);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderBrush(QColor(0xDD, 0xD8, 0xCB));
    table.setFormat(format);
}

} // namespace

void MarkdownPreview::showNote(const QString &markdown, int points)
{
    const int scrolled = verticalScrollBar()->value();
    QFont text = font();
    text.setPointSize(points);
    setFont(text);
    setMarkdown(markdown);
    document()->setDocumentMargin(24);
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next())
        polish(block, points);
    for (QTextFrame *frame : document()->rootFrame()->childFrames()) {
        if (auto *table = qobject_cast<QTextTable *>(frame))
            polish(*table);
    }
    verticalScrollBar()->setValue(scrolled);
}
