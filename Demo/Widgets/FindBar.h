#pragma once

#include <QTextDocument>
#include <QToolBar>

class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QTabWidget;

/// Finds text in the current note, while the user types and from place to place, from the last to the first again.
class FindBar : public QToolBar
{
    Q_OBJECT

public:
    /// \param notes the tabs, each a NotePage
    explicit FindBar(const QTabWidget &notes);

    /// Shows the bar; what is selected in the note is looked for first.
    void open();

private:
    [[nodiscard]] QPlainTextEdit &editor() const;
    void close();
    void search();
    void step(QTextDocument::FindFlags direction);

    const QTabWidget &m_notes;
    QLineEdit *m_text;
    QLabel *m_result;
};
