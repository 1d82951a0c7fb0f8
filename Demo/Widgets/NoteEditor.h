#pragma once

#include <QList>
#include <QPlainTextEdit>
#include <QTextCursor>

/// The source of one note: plain text with Markdown in colours, the current line and what was found marked.
class NoteEditor : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit NoteEditor(QWidget *parent = nullptr);

    /// \param points the font's size
    void setFontSize(int points);
    void setWordWrap(bool wrap);
    /// Marks these places until the next call. \param matches of this editor's document
    void setMatches(const QList<QTextCursor> &matches);
    /// Puts the text at the end of the note, on a line of its own; one step for undo.
    void appendParagraph(const QString &text);

private:
    void mark();

    QList<QTextCursor> m_matches;
};
