#include "Preferences.h"

#include <algorithm>

#include <QSettings>
#include <QStandardPaths>

namespace {

QString settingsFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation)
        + QStringLiteral("/preferences.ini");
}

} // namespace

Preferences Preferences::load()
{
    const QSettings settings(settingsFile(), QSettings::IniFormat);
    const Preferences usual;
    Preferences loaded;
    loaded.fontSize = std::clamp(settings.value(QStringLiteral("fontSize"), usual.fontSize).toInt(),
                                 smallestFont, largestFont);
    loaded.wordWrap = settings.value(QStringLiteral("wordWrap"), usual.wordWrap).toBool();
    loaded.preview = settings.value(QStringLiteral("preview"), usual.preview).toBool();
    loaded.author = settings.value(QStringLiteral("author")).toString();
    return loaded;
}

void Preferences::save() const
{
    QSettings settings(settingsFile(), QSettings::IniFormat);
    settings.setValue(QStringLiteral("fontSize"), fontSize);
    settings.setValue(QStringLiteral("wordWrap"), wordWrap);
    settings.setValue(QStringLiteral("preview"), preview);
    settings.setValue(QStringLiteral("author"), author);
}
