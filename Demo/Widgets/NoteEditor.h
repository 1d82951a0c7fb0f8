#pragma once

#include <QPlainTextEdit>

struct Preferences;

/// The source of one note: plain text, with its Markdown in colours and the current line marked.
class NoteEditor : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit NoteEditor(QWidget *parent = nullptr);

    void apply(const Preferences &preferences);

private:
    void markCurrentLine();
};
