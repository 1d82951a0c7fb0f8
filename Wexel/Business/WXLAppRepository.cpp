#include "Business/WXLAppRepository.h"

#include "Platform/ApplicationEnd.h"
#include "Platform/HostFolders.h"
#include "Platform/Log.h"
#include "Platform/ThreadPool.h"

namespace wexel {

namespace {

const QString authorizedKey = QStringLiteral("pellum.applicationAuthorizedKey");
const QString activeKey = QStringLiteral("pellum.applicationActiveKey");
const QString emailKey = QStringLiteral("pellum.emailAddressKey");
const QString colorKey = QStringLiteral("pellum.lastUsedColor");
const QString buttonXKey = QStringLiteral("pellum.floatingButtonFrameX");
const QString buttonYKey = QStringLiteral("pellum.floatingButtonFrameY");

QString flagText(bool flag)
{
    return flag ? QStringLiteral("True") : QStringLiteral("False");
}

template <typename Value>
std::optional<Value> read(const UserDefaults &defaults, const QString &key)
{
    const QVariant value = defaults.objectForKey(key);
    return value.canConvert<Value>() ? std::optional(value.value<Value>()) : std::nullopt;
}

template <typename Value>
void write(UserDefaults &defaults, const std::optional<Value> &value, const QString &key)
{
    defaults.setObject(value ? QVariant::fromValue(*value) : QVariant(), key);
}

} // namespace

WXLAppRepository::WXLAppRepository(std::shared_ptr<UserDefaults> userDefaults)
    : m_userDefaults(std::move(userDefaults))
{
}

WXLAppRepository &WXLAppRepository::sharedInstance()
{
    static auto *instance = [] {
        auto *created
            = new WXLAppRepository(makeUserDefaults(HostFolders::userDefaults(), ThreadPool::runLater));
        ApplicationEnd::perform(ApplicationEnd::Phase::Storage,
                                [created] { created->userDefaults().synchronize(); });
        return created;
    }();
    return *instance;
}

bool WXLAppRepository::clientAuthorized() const
{
    return read<bool>(*m_userDefaults, authorizedKey).value_or(false);
}

void WXLAppRepository::setClientAuthorized(bool flag)
{
    log(QStringLiteral("WXLAppRepository - Setting client authorized -> %1").arg(flagText(flag)));
    m_userDefaults->setObject(flag, authorizedKey);
}

bool WXLAppRepository::applicationActive() const
{
    return read<bool>(*m_userDefaults, activeKey).value_or(true);
}

void WXLAppRepository::setApplicationActive(bool flag)
{
    log(QStringLiteral("WXLAppRepository - Setting application active -> %1").arg(flagText(flag)));
    m_userDefaults->setObject(flag, activeKey);
}

std::optional<QString> WXLAppRepository::emailAddress() const
{
    return read<QString>(*m_userDefaults, emailKey);
}

void WXLAppRepository::setEmailAddress(const std::optional<QString> &address)
{
    write(*m_userDefaults, address, emailKey);
}

std::optional<qint32> WXLAppRepository::lastUsedColor() const
{
    return read<qint32>(*m_userDefaults, colorKey);
}

void WXLAppRepository::setLastUsedColor(const std::optional<qint32> &index)
{
    write(*m_userDefaults, index, colorKey);
}

std::optional<float> WXLAppRepository::floatingButtonFrameX() const
{
    return read<float>(*m_userDefaults, buttonXKey);
}

void WXLAppRepository::setFloatingButtonFrameX(const std::optional<float> &x)
{
    write(*m_userDefaults, x, buttonXKey);
}

std::optional<float> WXLAppRepository::floatingButtonFrameY() const
{
    return read<float>(*m_userDefaults, buttonYKey);
}

void WXLAppRepository::setFloatingButtonFrameY(const std::optional<float> &y)
{
    write(*m_userDefaults, y, buttonYKey);
}

#define WEXEL_BRANDING_SLOT(getter, setter)                                                                  \
    QVariant WXLAppRepository::getter() const                                                                \
    {                                                                                                        \
        return getObjectForKey(QStringLiteral("pellum." #getter));                                           \
    }                                                                                                        \
    void WXLAppRepository::setter(const QVariant &value)                                                     \
    {                                                                                                        \
        setObject(value, QStringLiteral("pellum." #getter));                                                 \
    }
WEXEL_BRANDING_SLOT(identifier, setIdentifier)
WEXEL_BRANDING_SLOT(createdDate, setCreatedDate)
WEXEL_BRANDING_SLOT(updatedDate, setUpdatedDate)
WEXEL_BRANDING_SLOT(textColor, setTextColor)
WEXEL_BRANDING_SLOT(backgroundColor, setBackgroundColor)
WEXEL_BRANDING_SLOT(placeholderColor, setPlaceholderColor)
WEXEL_BRANDING_SLOT(highlightedTextColor, setHighlightedTextColor)
WEXEL_BRANDING_SLOT(logoUrl, setLogoUrl)
WEXEL_BRANDING_SLOT(slogan, setSlogan)
#undef WEXEL_BRANDING_SLOT

void WXLAppRepository::setObject(const QVariant &object, const QString &key)
{
    m_userDefaults->setObject(object, key);
}

QVariant WXLAppRepository::getObjectForKey(const QString &key) const
{
    return m_userDefaults->objectForKey(key);
}

void WXLAppRepository::setData(const QByteArray &data, const QString &key)
{
    m_userDefaults->setObject(data, key);
}

std::optional<QByteArray> WXLAppRepository::getData(const QString &key) const
{
    return m_userDefaults->dataForKey(key);
}

void WXLAppRepository::removeObjectForKey(const QString &key)
{
    m_userDefaults->removeObjectForKey(key);
}

} // namespace wexel
