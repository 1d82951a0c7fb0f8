#pragma once

#include <QDialog>

#include "Preferences.h"

class QCheckBox;
class QLineEdit;
class QSpinBox;

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
