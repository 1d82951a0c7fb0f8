#pragma once

#include <QDialog>

class QCheckBox;
class QLineEdit;
class QSpinBox;

/// What the user sets for all notes; kept in the application's own configuration folder.
struct Preferences {
    static constexpr int smallestFont = 8, usualFont = 11, largestFont = 28;

    int fontSize = usualFont; ///< in points, within the limits above
    bool wordWrap = true;
    bool preview = true; ///< the rendered note is shown beside the editor
    QString author; ///< e-mail address, goes along with bug reports; may be empty

    /// What was saved last; the usual values for what was not.
    [[nodiscard]] static Preferences load();
    void save() const;
};

/// Edits preferences; whoever opened it takes them when it was accepted.
class PreferencesDialog : public QDialog
{
    Q_OBJECT

public:
    explicit PreferencesDialog(const Preferences &current, QWidget *parent = nullptr);

    [[nodiscard]] Preferences preferences() const;

private:
    const Preferences m_before;
    QSpinBox *m_fontSize;
    QCheckBox *m_wordWrap;
    QLineEdit *m_author;
};
