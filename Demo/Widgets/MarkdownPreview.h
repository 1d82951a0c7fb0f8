#pragma once

#include <QTextBrowser>

/// A note as it reads: its Markdown laid out for the eye.
class MarkdownPreview : public QTextBrowser
{
    Q_OBJECT

public:
    using QTextBrowser::QTextBrowser;

    /// Shows the note and stays where the reader had scrolled to. \param points the size of its plain text
    void showNote(const QString &markdown, int points);
};
