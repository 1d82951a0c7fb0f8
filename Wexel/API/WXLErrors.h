#pragma once

#include <QString>

namespace wexel {

/// Domain of every error that the library itself creates.
inline const QString WXLErrorDomainAPI = QStringLiteral("WXLErrorDomainAPI");

inline constexpr int WXLErrorAPICode = 100; ///< the backend answered with an unexpected status
inline constexpr int WXLErrorFileUpload = 101; ///< reserved for a failed file upload; never raised
inline constexpr int WXLErrorApplicationArchived = 102; ///< the backend has archived the application

} // namespace wexel
