#pragma once

#include <optional>

#include <QLatin1String>
#include <QString>

#include "Platform/Bundle.h"

namespace wexel {

/// Key of the library's dictionary in the host's information property list, and the keys in that dictionary.
inline constexpr QLatin1String WexelDictKey{"Wexel"};
inline constexpr QLatin1String APIClientID{"APIClientID"};
inline constexpr QLatin1String APIClientSecret{"APIClientSecret"};
/// Key of the backend's base address in the library's own information dictionary.
inline constexpr QLatin1String kWexelApiURLKey{"WEXEL_API_URL"};

/// The configuration: credentials and identifier from the host's bundle, the backend's base address from the
/// library's. A value is absent when its key is missing, or, with a log line that names the file, the key and
/// the expected type, when it is not a text. Thread-safe: no state of its own.
class WXLInfoPlist
{
public:
    /// The bundles outlive the object.
    explicit WXLInfoPlist(const Bundle &host = Bundle::main(), const Bundle &library = Bundle::library());

    [[nodiscard]] std::optional<QString> apiClientID() const;
    [[nodiscard]] std::optional<QString> apiClientSecret() const;
    [[nodiscard]] std::optional<QString> hostApplicationBundleId() const;
    [[nodiscard]] std::optional<QString> apiUrl() const;
    /// The library's own bundle, not the host's.
    [[nodiscard]] const Bundle &wexelBundle() const { return m_library; }

private:
    [[nodiscard]] std::optional<QString> credential(const QString &key) const;

    const Bundle &m_host;
    const Bundle &m_library;
};

} // namespace wexel
