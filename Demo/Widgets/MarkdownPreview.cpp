#include "MarkdownPreview.h"

#include <QDesktopServices>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextList>

#include "Appearance.h"

namespace {

void polishBlock(QTextCursor &cursor, int points)
{
    static constexpr qreal scales[] = {1.0, 1.75, 1.35, 1.15, 1.05, 1.0, 1.0};
    const QTextBlock block = cursor.block();
    const int level = block.blockFormat().headingLevel();
    QTextBlockFormat lines;
    lines.setLineHeight(level > 0 ? 115 : 140, QTextBlockFormat::ProportionalHeight);
    if (level > 0) {
        QTextCharFormat heading;
        heading.setFontPointSize(points * scales[level]);
        heading.setForeground(level == 1 ? Ink::text : Ink::accent);
        cursor.select(QTextCursor::BlockUnderCursor);
        cursor.mergeCharFormat(heading);
        lines.setTopMargin(level == 1 ? 0 : points * 1.4);
        lines.setBottomMargin(points * 0.6);
    } else if (block.textList() != nullptr) {
        lines.setBottomMargin(points * 0.25);
    }
    cursor.mergeBlockFormat(lines);
}

} // namespace

MarkdownPreview::MarkdownPreview(QWidget *parent) : QTextBrowser(parent)
{
    setOpenLinks(false);
    connect(this, &QTextBrowser::anchorClicked, this, &MarkdownPreview::follow);
}

void MarkdownPreview::showNote(const QString &markdown)
{
    const int scrolled = verticalScrollBar()->value();
    setMarkdown(markdown);
    polish();
    verticalScrollBar()->setValue(scrolled);
}

void MarkdownPreview::setFontSize(int points)
{
    QFont changed = font();
    changed.setPointSize(points);
    setFont(changed);
}

void MarkdownPreview::follow(const QUrl &link)
{
    if (link.scheme() == u"https" || link.scheme() == u"http")
        QDesktopServices::openUrl(link);
}

void MarkdownPreview::polish()
{
    document()->setDocumentMargin(24);
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        QTextCursor cursor(block);
        polishBlock(cursor, font().pointSize());
    }
}
