#include "PreferencesDialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSettings>
#include <QSpinBox>
#include <QStandardPaths>

namespace {

const QString fontSizeKey = QStringLiteral("fontSize");
const QString wordWrapKey = QStringLiteral("wordWrap");
const QString previewKey = QStringLiteral("preview");
const QString authorKey = QStringLiteral("author");

QString settingsFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation)
        + QStringLiteral("/preferences.ini");
}

} // namespace

Preferences Preferences::load()
{
    const QSettings settings(settingsFile(), QSettings::IniFormat);
    const int points = settings.value(fontSizeKey, usualFont).toInt();
    return {qBound(smallestFont, points, largestFont), settings.value(wordWrapKey, true).toBool(),
            settings.value(previewKey, true).toBool(), settings.value(authorKey).toString()};
}

void Preferences::save() const
{
    QSettings settings(settingsFile(), QSettings::IniFormat);
    settings.setValue(fontSizeKey, fontSize);
    settings.setValue(wordWrapKey, wordWrap);
    settings.setValue(previewKey, preview);
    settings.setValue(authorKey, author);
}

PreferencesDialog::PreferencesDialog(const Preferences &current, QWidget *parent)
    : QDialog(parent)
    , m_before(current)
    , m_fontSize(new QSpinBox)
    , m_wordWrap(new QCheckBox(tr("&Wrap long lines at the editor's edge")))
    , m_author(new QLineEdit(current.author))
{
    setWindowTitle(tr("Preferences"));
    m_fontSize->setRange(Preferences::smallestFont, Preferences::largestFont);
    m_fontSize->setSuffix(tr(" pt"));
    m_fontSize->setValue(current.fontSize);
    m_wordWrap->setChecked(current.wordWrap);
    m_author->setPlaceholderText(tr("you@example.org"));
    m_author->setMinimumWidth(280);
    auto *hint = new QLabel(tr("Goes along with the bugs you report."));
    hint->setObjectName(QStringLiteral("hint"));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *form = new QFormLayout(this);
    form->setContentsMargins(24, 22, 24, 20);
    form->setHorizontalSpacing(18);
    form->setVerticalSpacing(12);
    form->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    form->addRow(tr("&Font size"), m_fontSize);
    form->addRow(tr("Lines"), m_wordWrap);
    form->addRow(tr("Author's &e-mail"), m_author);
    form->addRow(QString(), hint);
    form->addRow(buttons);
    form->setSizeConstraint(QLayout::SetFixedSize);
}

Preferences PreferencesDialog::preferences() const
{
    Preferences changed = m_before;
    changed.fontSize = m_fontSize->value();
    changed.wordWrap = m_wordWrap->isChecked();
    changed.author = m_author->text().trimmed();
    return changed;
}
