#include "Platform/Bundle.h"

#include <algorithm>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include "Platform/LoadedObject.h"
#include "Platform/Log.h"
#include "Platform/PropertyList.h"

namespace wexel {

const Bundle &Bundle::main()
{
    static const auto &bundle = *[] { // outlives every thread
        auto &host = *new Bundle(QStringLiteral("application"),
                                 candidatesForExecutable(QCoreApplication::applicationFilePath()));
        const QString identifier = QStringLiteral("CFBundleIdentifier");
        if (!host.m_dictionary.contains(identifier)) {
            host.m_dictionary.insert(identifier,
                                     reversedIdentifier(QCoreApplication::organizationDomain(),
                                                        QCoreApplication::applicationName()));
        }
        return &host;
    }();
    return bundle;
}

const Bundle &Bundle::library()
{
    static const auto &bundle
        = *new Bundle(QStringLiteral("library"), candidatesForObject(loadedObjectPath()));
    return bundle;
}

Bundle::Bundle(const QString &name, const QStringList &candidates)
{
    const auto found = std::find_if(candidates.begin(), candidates.end(),
                                    [](const QString &candidate) { return QFileInfo::exists(candidate); });
    if (found == candidates.end()) {
        log(QStringLiteral("Bundle: no Info.plist of the %1 (looked for %2)")
                .arg(name, candidates.join(QStringLiteral(", "))));
        return;
    }
    m_infoPath = *found;
    QString error;
    const auto dictionary = readPropertyList(m_infoPath, error);
    if (dictionary)
        m_dictionary = *dictionary;
    else
        log(QStringLiteral("Bundle: %1").arg(error));
}

QStringList Bundle::candidatesForExecutable(const QString &executable)
{
    const QFileInfo file(executable);
    const QDir folder(file.path());
    return {QStringLiteral(":/Info.plist"), folder.filePath(QStringLiteral("Info.plist")),
            QDir::cleanPath(folder.filePath(QStringLiteral("../share/%1/Info.plist").arg(file.fileName())))};
}

// The object lies in PREFIX/lib, PREFIX/bin or PREFIX/lib/TRIPLET.
QStringList Bundle::candidatesForObject(const QString &object)
{
    const QDir folder(QFileInfo(object).path());
    return {QDir::cleanPath(folder.filePath(QStringLiteral("../share/wexel/Info.plist"))),
            QDir::cleanPath(folder.filePath(QStringLiteral("../../share/wexel/Info.plist")))};
}

QString Bundle::reversedIdentifier(const QString &domain, const QString &applicationName)
{
    QStringList parts = domain.split(u'.', Qt::SkipEmptyParts);
    std::reverse(parts.begin(), parts.end());
    return (parts << applicationName).join(u'.');
}

QString Bundle::path() const
{
    return m_infoPath.isEmpty() ? QString() : QFileInfo(m_infoPath).path();
}

} // namespace wexel
