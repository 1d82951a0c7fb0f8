#pragma once

#include <optional>

#include <QByteArray>
#include <QColor>
#include <QDateTime>
#include <QString>
#include <QUrl>

#include "Platform/Error.h"

namespace wexel {

/// The answer to a token request: a JSON object with "access_token" and "expires_in".
struct WXLAPIAuthResponse {
    QString accessToken;
    /// Deliberately never set: the token's lifetime is not tracked, a new authorisation replaces it.
    std::optional<double> expiresIn;

    /// Nothing when the body is not JSON or lacks either key.
    [[nodiscard]] static std::optional<WXLAPIAuthResponse> initWithData(const QByteArray &data);
};

/// The white-label answer: colours as hex texts, slogan and logo address.
struct WXLAPIBrandingResponse {
    QDateTime
        updated; ///< from "yyyy-MM-dd'T'HH:mm:ss.SSSZ" (zone as +0100); invalid when absent or unparsable
    QColor textColor;
    QColor backgroundColor;
    QColor placeholderColor;
    QColor highlightedTextColor;
    QString slogan;
    QUrl logoUrl;

    /// Nothing when a required key is missing; `error` is set only when the body is not JSON.
    [[nodiscard]] static std::optional<WXLAPIBrandingResponse> initWithData(const QByteArray &data,
                                                                            std::optional<Error> &error);
};

} // namespace wexel
