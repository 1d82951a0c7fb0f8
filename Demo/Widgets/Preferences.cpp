#include "Preferences.h"

#include <algorithm>

#include <QSettings>
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
    return {std::clamp(points, smallestFont, largestFont), settings.value(wordWrapKey, true).toBool(),
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
