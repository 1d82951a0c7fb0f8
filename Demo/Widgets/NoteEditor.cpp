#include "NoteEditor.h"

#include <vector>

#include <QFontDatabase>
#include <QRegularExpression>
#include <QSyntaxHighlighter>

#include "Appearance.h"
#include "Preferences.h"

namespace {

/// Keeps the marks of Markdown and colours what they mean.
class MarkdownHighlighter : public QSyntaxHighlighter
{
public:
    explicit MarkdownHighlighter(QTextDocument *document) : QSyntaxHighlighter(document)
    {
        addRule(QStringLiteral("\\*\\*[^*\\s][^*]*\\*\\*"), Ink::text, true);
        addRule(QStringLiteral("\\[[^\\]]+\\]\\([^)]+\\)"), Ink::accent, false);
        addRule(QStringLiteral("^\\s*([-*+]|\\d+\\.)( \\[[ xX]\\])?(?= )"), Ink::accent, true);
        addRule(QStringLiteral("`[^`]+`"), Ink::code, false);
        addRule(QStringLiteral("^\\s*>.*$"), Ink::soft, false);
        addRule(QStringLiteral("^#{1,6}\\s.*$"), Ink::accent, true);
    }

protected:
    void highlightBlock(const QString &text) override
    {
        for (const auto &[pattern, format] : m_rules) {
            for (auto matches = pattern.globalMatch(text); matches.hasNext();) {
                const auto match = matches.next();
                setFormat(static_cast<int>(match.capturedStart()), static_cast<int>(match.capturedLength()),
                          format);
            }
        }
    }

private:
    void addRule(const QString &pattern, const QColor &colour, bool bold)
    {
        QTextCharFormat format;
        format.setForeground(colour);
        format.setFontWeight(bold ? QFont::Bold : QFont::Normal);
        m_rules.emplace_back(QRegularExpression(pattern), format);
    }

    std::vector<std::pair<QRegularExpression, QTextCharFormat>> m_rules; ///< the last one that matches counts
};

} // namespace

NoteEditor::NoteEditor(QWidget *parent) : QPlainTextEdit(parent)
{
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    document()->setDocumentMargin(22);
    setCursorWidth(2);
    new MarkdownHighlighter(document());
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, &NoteEditor::markCurrentLine);
    markCurrentLine();
}

void NoteEditor::apply(const Preferences &preferences)
{
    QFont changed = font();
    changed.setPointSize(preferences.fontSize);
    setFont(changed);
    setTabStopDistance(4.0 * fontMetrics().horizontalAdvance(u' '));
    setLineWrapMode(preferences.wordWrap ? WidgetWidth : NoWrap);
}

void NoteEditor::markCurrentLine()
{
    QTextEdit::ExtraSelection line;
    line.cursor = textCursor();
    line.cursor.clearSelection();
    line.format.setBackground(Ink::currentLine);
    line.format.setProperty(QTextFormat::FullWidthSelection, true);
    setExtraSelections({line});
}
