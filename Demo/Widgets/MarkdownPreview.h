#pragma once

#include <QTextBrowser>

/// A note as it reads: Markdown rendered for the eye. Links to the web open in the user's browser, others do nothing.
class MarkdownPreview : public QTextBrowser
{
    Q_OBJECT

public:
    explicit MarkdownPreview(QWidget *parent = nullptr);

    /// Shows the note and stays where the reader had scrolled to.
    void showNote(const QString &markdown);
    /// \param points the size of plain text; what is shown changes with the next `showNote`
    void setFontSize(int points);

private:
    static void follow(const QUrl &link);
    void polish();
};
