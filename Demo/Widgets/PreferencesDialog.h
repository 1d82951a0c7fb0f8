#pragma once

#include <QDialog>

#include "Preferences.h"

class QCheckBox;
class QLineEdit;
class QPushButton;
class QSpinBox;

/// Edits preferences; the window that opened it reads them when it was accepted.
class PreferencesDialog : public QDialog
{
    Q_OBJECT

public:
    explicit PreferencesDialog(const Preferences &current, QWidget *parent = nullptr);

    [[nodiscard]] Preferences preferences() const;

private:
    void checkAuthor();

    QSpinBox *m_fontSize;
    QCheckBox *m_wordWrap;
    QCheckBox *m_preview;
    QLineEdit *m_author;
    QPushButton *m_accept = nullptr;
};
