#include "MarkdownHighlighter.h"

#include "Appearance.h"

namespace {

QTextCharFormat inColour(const QColor &colour, int weight = QFont::Normal)
{
    QTextCharFormat format;
    format.setForeground(colour);
    format.setFontWeight(weight);
    return format;
}

QTextCharFormat slanted()
{
    QTextCharFormat format;
    format.setFontItalic(true);
    return format;
}

} // namespace

MarkdownHighlighter::MarkdownHighlighter(QTextDocument *document)
    : QSyntaxHighlighter(document)
    , m_code(inColour(Ink::warm))
{
    const auto rule = [this](const QString &pattern, const QTextCharFormat &format) {
        m_rules.append({QRegularExpression(pattern), format});
    };
    rule(QStringLiteral("(?<!\\*)\\*[^*\\s][^*]*\\*(?!\\*)"), slanted());
    rule(QStringLiteral("\\*\\*[^*\\s][^*]*\\*\\*"), inColour(Ink::text, QFont::Bold));
    rule(QStringLiteral("\\[[^\\]]+\\]\\([^)]+\\)"), inColour(Ink::accent));
    rule(QStringLiteral("`[^`]+`"), m_code);
    rule(QStringLiteral("^\\s*([-*+]|\\d+\\.)( \\[[ xX]\\])?(?= )"), inColour(Ink::accent, QFont::Bold));
    rule(QStringLiteral("^\\s*>.*$"), inColour(Ink::soft));
    rule(QStringLiteral("^#{1,6}\\s.*$"), inColour(Ink::accent, QFont::Bold));
}

void MarkdownHighlighter::highlightBlock(const QString &text)
{
    const bool fence = text.startsWith(QStringLiteral("```"));
    const bool inside = previousBlockState() == Fenced;
    setCurrentBlockState(fence != inside ? Fenced : Prose);
    if (fence || inside) {
        setFormat(0, static_cast<int>(text.size()), m_code);
        return;
    }
    for (const Rule &rule : std::as_const(m_rules)) {
        auto matches = rule.pattern.globalMatch(text);
        while (matches.hasNext()) {
            const auto match = matches.next();
            setFormat(static_cast<int>(match.capturedStart()), static_cast<int>(match.capturedLength()),
                      rule.format);
        }
    }
}
