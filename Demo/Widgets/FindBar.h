#pragma once

#include <QFrame>
#include <QPointer>
#include <QTextDocument>

class NoteEditor;
class QCheckBox;
class QLabel;
class QLineEdit;
class QToolButton;

/// Finds text in the current note: marks all places and steps through them, from the last to the first again.
class FindBar : public QFrame
{
    Q_OBJECT

public:
    explicit FindBar(QWidget *parent = nullptr);

    /// Searches this note from now on. \param editor may go at any time; null for none
    void setEditor(NoteEditor *editor);
    /// Shows the bar for typing; what is selected in the note is looked for first.
    void open();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    QToolButton *addButton(const QString &icon, const QString &toolTip);
    [[nodiscard]] QTextDocument::FindFlags flags() const;
    void search();
    void step(QTextDocument::FindFlags direction);
    void showCount();

    QPointer<NoteEditor> m_editor;
    QLineEdit *m_text;
    QLabel *m_count;
    QCheckBox *m_matchCase;
    QList<QTextCursor> m_matches;
};
