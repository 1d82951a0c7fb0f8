#include "Platform/HostFolders.h"

#include <QStandardPaths>

namespace wexel::HostFolders {

namespace {

QString applicationData()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
}

} // namespace

QUrl documents()
{
    return QUrl::fromLocalFile(applicationData() + QStringLiteral("/Documents"));
}

QString userDefaults()
{
    return applicationData() + QStringLiteral("/Preferences/wexel.defaults");
}

} // namespace wexel::HostFolders
