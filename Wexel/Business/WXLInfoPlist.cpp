#include "Business/WXLInfoPlist.h"

#include "Platform/Log.h"

namespace wexel {

namespace {

void logWrongType(const Bundle &bundle, const QString &key, const QString &expected, const QVariant &found)
{
    log(QStringLiteral("WXLInfoPlist: %1: key \"%2\": expected %3, found %4")
            .arg(bundle.infoPath(), key, expected, QString::fromLatin1(found.typeName())));
}

// `path` is the key as the log calls it.
std::optional<QString> textIn(const QVariantMap &dictionary, const QString &key, const Bundle &bundle,
                              const QString &path)
{
    const QVariant value = dictionary.value(key);
    if (!value.isValid())
        return std::nullopt;
    if (value.typeId() == QMetaType::QString)
        return value.toString();
    logWrongType(bundle, path, QStringLiteral("a string"), value);
    return std::nullopt;
}

} // namespace

WXLInfoPlist::WXLInfoPlist(const Bundle &host, const Bundle &library) : m_host(host), m_library(library) { }

std::optional<QString> WXLInfoPlist::apiClientID() const
{
    return credential(APIClientID);
}

std::optional<QString> WXLInfoPlist::apiClientSecret() const
{
    return credential(APIClientSecret);
}

std::optional<QString> WXLInfoPlist::hostApplicationBundleId() const
{
    const QString key = QStringLiteral("CFBundleIdentifier");
    return textIn(m_host.infoDictionary(), key, m_host, key);
}

std::optional<QString> WXLInfoPlist::apiUrl() const
{
    return textIn(m_library.infoDictionary(), kWexelApiURLKey, m_library, kWexelApiURLKey);
}

std::optional<QString> WXLInfoPlist::credential(const QString &key) const
{
    const QVariant dictionary = m_host.objectForInfoDictionaryKey(WexelDictKey);
    if (dictionary.isValid() && dictionary.typeId() != QMetaType::QVariantMap) {
        logWrongType(m_host, WexelDictKey, QStringLiteral("a dictionary"), dictionary);
        return std::nullopt;
    }
    return textIn(dictionary.toMap(), key, m_host, WexelDictKey + u'/' + key);
}

} // namespace wexel
