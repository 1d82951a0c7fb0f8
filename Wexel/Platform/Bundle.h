#pragma once

#include <QString>
#include <QStringList>
#include <QVariantMap>

namespace wexel {

/// What a bundle says about itself: the information property list ("Info.plist") of the host application or
/// of the library. Read once, immutable, thread-safe. A file that is missing, unreadable or malformed costs
/// one log line and acts as empty.
class Bundle
{
public:
    /// The host application's: the Qt resource ":/Info.plist", else Info.plist beside the executable, else
    /// ../share/<executable name>/Info.plist from it. Without a CFBundleIdentifier the application's reversed
    /// organisation domain and name stand in for it. First called once the application object exists.
    [[nodiscard]] static const Bundle &main();
    /// The library's own: share/wexel/Info.plist of the tree that the loaded library (or the program that the
    /// library's code is linked into) lies in, wherever that tree was moved.
    [[nodiscard]] static const Bundle &library();

    /// The first of the files that exists. \param name what the log calls the bundle
    Bundle(const QString &name, const QStringList &candidates);

    /// Where `main` looks, for an executable.
    [[nodiscard]] static QStringList candidatesForExecutable(const QString &executable);
    /// Where `library` looks, for a shared library or a program.
    [[nodiscard]] static QStringList candidatesForObject(const QString &object);
    /// "com.example.Cafe" for the domain "example.com" and the name "Cafe".
    [[nodiscard]] static QString reversedIdentifier(const QString &domain, const QString &applicationName);

    /// The value under the key, or an invalid QVariant.
    [[nodiscard]] QVariant objectForInfoDictionaryKey(const QString &key) const
    {
        return m_dictionary.value(key);
    }
    [[nodiscard]] const QVariantMap &infoDictionary() const { return m_dictionary; }
    /// The file that was read, for messages; empty when there was none.
    [[nodiscard]] const QString &infoPath() const { return m_infoPath; }
    /// The folder that the file lies in; empty when there was none.
    [[nodiscard]] QString path() const;

private:
    QString m_infoPath;
    QVariantMap m_dictionary;
};

} // namespace wexel
