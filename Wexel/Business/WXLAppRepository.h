#pragma once

#include <memory>
#include <optional>

#include <QByteArray>
#include <QString>
#include <QVariant>

#include "Platform/UserDefaults.h"

namespace wexel {

/// All state that outlives a launch: a typed layer over the application's user defaults. Thread-safe as they are.
class WXLAppRepository
{
public:
    explicit WXLAppRepository(std::shared_ptr<UserDefaults> userDefaults);
    /// Over the host application's own store, which is written a last time when the application ends.
    static WXLAppRepository &sharedInstance();

    /// The last authorisation succeeded. False when unknown.
    [[nodiscard]] bool clientAuthorized() const;
    void setClientAuthorized(bool flag);
    /// The backend takes reports of this application. True until it says otherwise.
    [[nodiscard]] bool applicationActive() const;
    void setApplicationActive(bool flag);

    [[nodiscard]] std::optional<QString> emailAddress() const;
    void setEmailAddress(const std::optional<QString> &address);
    /// Index into the drawing palette.
    [[nodiscard]] std::optional<qint32> lastUsedColor() const;
    void setLastUsedColor(const std::optional<qint32> &index);
    /// Position of the floating button, in points.
    [[nodiscard]] std::optional<float> floatingButtonFrameX() const;
    void setFloatingButtonFrameX(const std::optional<float> &x);
    [[nodiscard]] std::optional<float> floatingButtonFrameY() const;
    void setFloatingButtonFrameY(const std::optional<float> &y);

    // Slots for a stored copy of the branding; plain values, not used by the library itself.
    [[nodiscard]] QVariant identifier() const;
    void setIdentifier(const QVariant &value);
    [[nodiscard]] QVariant createdDate() const;
    void setCreatedDate(const QVariant &value);
    [[nodiscard]] QVariant updatedDate() const;
    void setUpdatedDate(const QVariant &value);
    [[nodiscard]] QVariant textColor() const;
    void setTextColor(const QVariant &value);
    [[nodiscard]] QVariant backgroundColor() const;
    void setBackgroundColor(const QVariant &value);
    [[nodiscard]] QVariant placeholderColor() const;
    void setPlaceholderColor(const QVariant &value);
    [[nodiscard]] QVariant highlightedTextColor() const;
    void setHighlightedTextColor(const QVariant &value);
    [[nodiscard]] QVariant logoUrl() const;
    void setLogoUrl(const QVariant &value);
    [[nodiscard]] QVariant slogan() const;
    void setSlogan(const QVariant &value);

    void setObject(const QVariant &object, const QString &key);
    [[nodiscard]] QVariant getObjectForKey(const QString &key) const;
    /// Bytes under the exact key; for the histories, see UserDefaults on when they reach the disk.
    void setData(const QByteArray &data, const QString &key);
    /// Nothing when absent or not bytes.
    [[nodiscard]] std::optional<QByteArray> getData(const QString &key) const;
    void removeObjectForKey(const QString &key);

    [[nodiscard]] UserDefaults &userDefaults() { return *m_userDefaults; }

private:
    std::shared_ptr<UserDefaults> m_userDefaults;
};

} // namespace wexel
