#pragma once

#include <QFrame>
#include <QTextDocument>

class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QTabWidget;

/// Finds text in the current note, while the user types and from place to place, from the last to the first again.
class FindBar : public QFrame
{
    Q_OBJECT

public:
    /// \param notes the tabs, each a NotePage
    explicit FindBar(const QTabWidget &notes, QWidget *parent = nullptr);

    /// Shows the bar; what is selected in the note is looked for first.
    void open();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void addButton(const QString &icon, const QString &toolTip, const std::function<void()> &action);
    [[nodiscard]] QPlainTextEdit &editor() const;
    void close();
    void searchFromSelection();
    void step(QTextDocument::FindFlags direction);

    const QTabWidget &m_notes;
    QLineEdit *m_text;
    QLabel *m_result;
};
