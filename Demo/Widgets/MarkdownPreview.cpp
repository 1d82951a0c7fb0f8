#include "MarkdownPreview.h"

#include <QScrollBar>
#include <QTextBlock>
#include <QTextList>
#include <QTextTable>

#include "Appearance.h"

namespace {

void polishHeading(QTextCursor cursor, int level, int points)
{
    static constexpr qreal scales[] = {1.8, 1.35, 1.15, 1.0, 1.0, 1.0};
    QTextCharFormat letters;
    letters.setFontPointSize(points * scales[level - 1]);
    letters.setForeground(level == 1 ? Ink::text : Ink::accent);
    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    cursor.mergeCharFormat(letters);
}

void polishBlock(const QTextBlock &block, int points)
{
    QTextCursor cursor(block);
    const int level = block.blockFormat().headingLevel();
    QTextBlockFormat format;
    format.setLineHeight(level > 0 ? 110 : 135, QTextBlockFormat::ProportionalHeight);
    if (level > 0) {
        polishHeading(cursor, level, points);
        format.setTopMargin(level == 1 ? 0 : points * 1.5);
        format.setBottomMargin(points * 0.5);
    }
    cursor.mergeBlockFormat(format);
}

} // namespace

MarkdownPreview::MarkdownPreview(QWidget *parent) : QTextBrowser(parent)
{
    setOpenLinks(false);
}

void MarkdownPreview::showNote(const QString &markdown, int points)
{
    const int scrolled = verticalScrollBar()->value();
    QFont text = font();
    text.setPointSize(points);
    setFont(text);
    setMarkdown(markdown);
    document()->setDocumentMargin(24);
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next())
        polishBlock(block, points);
    verticalScrollBar()->setValue(scrolled);
}
