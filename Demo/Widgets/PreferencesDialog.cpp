#include "PreferencesDialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QSpinBox>

PreferencesDialog::PreferencesDialog(const Preferences &current, QWidget *parent)
    : QDialog(parent)
    , m_fontSize(new QSpinBox)
    , m_wordWrap(new QCheckBox(tr("Wrap long lines at the window's &edge")))
    , m_preview(new QCheckBox(tr("Show the &preview beside the editor")))
    , m_author(new QLineEdit(current.author))
{
    setWindowTitle(tr("Preferences"));
    m_fontSize->setRange(Preferences::smallestFont, Preferences::largestFont);
    m_fontSize->setSuffix(tr(" pt"));
    m_fontSize->setValue(current.fontSize);
    m_wordWrap->setChecked(current.wordWrap);
    m_preview->setChecked(current.preview);
    m_author->setPlaceholderText(tr("you@example.org"));
    m_author->setMinimumWidth(240);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    m_accept = buttons->button(QDialogButtonBox::Ok);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_author, &QLineEdit::textChanged, this, &PreferencesDialog::checkAuthor);

    auto *hint = new QLabel(tr("Edit ▸ Sign Note ends a note with it."));
    hint->setObjectName(QStringLiteral("hint"));
    auto *form = new QFormLayout(this);
    form->setContentsMargins(24, 20, 24, 20);
    form->setHorizontalSpacing(16);
    form->setVerticalSpacing(10);
    form->addRow(tr("&Font size:"), m_fontSize);
    form->addRow(tr("Editor:"), m_wordWrap);
    form->addRow(QString(), m_preview);
    form->addRow(tr("&Author's e-mail:"), m_author);
    form->addRow(QString(), hint);
    form->addRow(buttons);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    checkAuthor();
}

Preferences PreferencesDialog::preferences() const
{
    return {m_fontSize->value(), m_wordWrap->isChecked(), m_preview->isChecked(), m_author->text().trimmed()};
}

void PreferencesDialog::checkAuthor()
{
    static const QRegularExpression address(QStringLiteral("^[^@\\s]+@[^@\\s]+$"));
    const QString author = m_author->text().trimmed();
    m_accept->setEnabled(author.isEmpty() || address.match(author).hasMatch());
}
