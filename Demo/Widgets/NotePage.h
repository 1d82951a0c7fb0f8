#pragma once

#include <QTimer>
#include <QWidget>

#include "PreferencesDialog.h"

class MarkdownPreview;
class QPlainTextEdit;

/// One note in its tab: the editor, and its preview beside it.
class NotePage : public QWidget
{
    Q_OBJECT

public:
    /// An empty note. \param name shown until the note has a file
    NotePage(const QString &name, const Preferences &preferences);

    /// Replaces the text by the file's, which is then the note's file unless it is a resource. On failure
    /// nothing changes. \return what went wrong, for the user; empty for success
    [[nodiscard]] QString load(const QString &path);
    /// Writes the note to the file, which is then the note's own. \return as `load`
    [[nodiscard]] QString save(const QString &path);
    void apply(const Preferences &preferences);

    [[nodiscard]] QString name() const { return m_name; }
    /// The note's file; empty while it has none.
    [[nodiscard]] QString path() const { return m_path; }
    [[nodiscard]] QPlainTextEdit &editor() const { return *m_editor; }
    [[nodiscard]] bool isModified() const;
    [[nodiscard]] int wordCount() const;

Q_SIGNALS:
    /// The name, the text, the cursor or what can be done with them changed.
    void changed();

private:
    void setPath(const QString &path);
    void showPreview();

    QString m_name;
    QString m_path;
    QPlainTextEdit *m_editor;
    MarkdownPreview *m_preview;
    QTimer m_typing; ///< runs while the user types: the preview follows in the pauses
};
