#pragma once

#include "Business/WXLBlackBoxObject.h"

namespace wexel {

inline const QString kNRMethod = QStringLiteral("nrMethodKey");
inline const QString kNRStatusCode = QStringLiteral("nrStatusCodeKey");
inline const QString kNRUrl = QStringLiteral("nrUrlKey");
inline const QString kNRRequestBody = QStringLiteral("nrRequestBodyKey");
inline const QString kNRRequestHeaders = QStringLiteral("nrRequestHeadersKey");
inline const QString kNRResponseBody = QStringLiteral("nrResponseBodyKey");
inline const QString kNRResponseHeaders = QStringLiteral("nrResponseHeadersKey");
inline const QString kNRTimestamp = QStringLiteral("nrTimestampKey");
inline const QString kNRDuration = QStringLiteral("nrDurationKey");

/// One request made by the host application. Made when the request starts, with an empty response and a
/// duration of 0; both are filled in when the response arrives.
class NetworkRequestRecord final : public WXLBlackBoxObject
{
public:
    std::optional<QString> method;
    std::optional<QString> statusCode;
    std::optional<QString> url;
    std::optional<QString> requestBody;
    std::optional<QVariantMap> requestHeaders; ///< header name to value
    std::optional<QString> responseBody;
    std::optional<QVariantMap> responseHeaders;
    std::optional<QString> timestamp;
    std::optional<double> duration;

    NetworkRequestRecord(std::optional<QString> method, std::optional<QString> url,
                         std::optional<QString> requestBody, std::optional<QVariantMap> requestHeaders,
                         std::optional<QString> timestamp);
    explicit NetworkRequestRecord(const Coder &coder);

    [[nodiscard]] QString codingClassName() const override;
    void encodeWithCoder(Coder &coder) const override;
    [[nodiscard]] static const ArchivableClass &archivableClass();
};

} // namespace wexel
