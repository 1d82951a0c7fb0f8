#pragma once

#include <QList>
#include <QRegularExpression>
#include <QSyntaxHighlighter>

/// Colours Markdown in an editor, which keeps its marks: headings, emphasis, code, links, quotes and lists.
class MarkdownHighlighter : public QSyntaxHighlighter
{
    Q_OBJECT

public:
    explicit MarkdownHighlighter(QTextDocument *document);

protected:
    void highlightBlock(const QString &text) override;

private:
    struct Rule {
        QRegularExpression pattern;
        QTextCharFormat format;
    };
    enum BlockState { Prose, Fenced };

    QList<Rule> m_rules; ///< later ones are laid over earlier ones
    QTextCharFormat m_code;
};
