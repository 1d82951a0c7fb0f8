#include "Presentation/Textview/WXLResizingTextView.h"

#include <cmath>

#include <QTextBlock>
#include <QTextCursor>

namespace wexel {

namespace {

constexpr int mostLines = 3;
double threeLinesHeight = 0.0; // of the last text that had exactly three; a long paste takes it as it is

} // namespace

void WXLResizingTextView::setPlaceholder(const QString &placeholder)
{
    m_placeholder = placeholder;
    Q_EMIT textChanged();
}

void WXLResizingTextView::setText(const QString &text)
{
    m_text = text;
    Q_EMIT textChanged();
}

void WXLResizingTextView::setDocument(QQuickTextDocument *document)
{
    m_document = document;
    connect(document->textDocument(), &QTextDocument::contentsChanged, this,
            &WXLResizingTextView::spaceLines);
    spaceLines();
    Q_EMIT documentChanged();
}

// Paragraphs come with the default spacing when the text is set or pasted. Undoing takes that and this back at once.
void WXLResizingTextView::spaceLines()
{
    constexpr int percent = 100;
    QTextBlockFormat spaced;
    spaced.setLineHeight(lineHeightMultiple() * percent, QTextBlockFormat::ProportionalHeight);
    for (QTextBlock block = m_document->textDocument()->begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().lineHeightType() == QTextBlockFormat::ProportionalHeight)
            continue;
        QTextCursor cursor(block);
        cursor.joinPreviousEditBlock();
        cursor.mergeBlockFormat(spaced);
        cursor.endEditBlock();
    }
}

void WXLResizingTextView::textViewDidChange(double fittedHeight, double insets, double lineHeight)
{
    const int lines = static_cast<int>(std::floor((fittedHeight - insets) / lineHeight));
    if (lines == mostLines)
        threeLinesHeight = fittedHeight;
    m_isScrollEnabled = lines > mostLines;
    // All of the placeholder shows, also where letters are so large that it takes more.
    const bool isLimited = lines >= mostLines && !isPlaceholderShown();
    m_fieldHeight = isLimited ? threeLinesHeight : fittedHeight;
    Q_EMIT measured();
}

} // namespace wexel
