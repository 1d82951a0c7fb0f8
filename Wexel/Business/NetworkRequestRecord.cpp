#include "Business/NetworkRequestRecord.h"

#include <utility>

namespace wexel {

namespace {

std::optional<double> decodeNumber(const Coder &coder, const QString &key)
{
    const QVariant field = coder.decodeObject(key);
    const bool isNumber = field.typeId() == QMetaType::Double || field.typeId() == QMetaType::Float
        || field.typeId() == QMetaType::LongLong;
    return isNumber ? std::optional(field.toDouble()) : std::nullopt;
}

std::optional<QVariantMap> decodeDictionary(const Coder &coder, const QString &key)
{
    const QVariant field = coder.decodeObject(key);
    return field.typeId() == QMetaType::QVariantMap ? std::optional(field.toMap()) : std::nullopt;
}

template <typename Value>
QVariant encodable(const std::optional<Value> &value)
{
    return value ? QVariant(*value) : QVariant();
}

} // namespace

NetworkRequestRecord::NetworkRequestRecord(std::optional<QString> method, std::optional<QString> url,
                                           std::optional<QString> requestBody,
                                           std::optional<QVariantMap> requestHeaders,
                                           std::optional<QString> timestamp)
    : method(std::move(method))
    , statusCode(QString())
    , url(std::move(url))
    , requestBody(std::move(requestBody))
    , requestHeaders(std::move(requestHeaders))
    , responseBody(QString())
    , responseHeaders(QVariantMap())
    , timestamp(std::move(timestamp))
    , duration(0)
{
}

NetworkRequestRecord::NetworkRequestRecord(const Coder &coder)
    : method(coder.decodeString(kNRMethod))
    , statusCode(coder.decodeString(kNRStatusCode))
    , url(coder.decodeString(kNRUrl))
    , requestBody(coder.decodeString(kNRRequestBody))
    , requestHeaders(decodeDictionary(coder, kNRRequestHeaders))
    , responseBody(coder.decodeString(kNRResponseBody))
    , responseHeaders(decodeDictionary(coder, kNRResponseHeaders))
    , timestamp(coder.decodeString(kNRTimestamp))
    , duration(decodeNumber(coder, kNRDuration))
{
}

QString NetworkRequestRecord::codingClassName() const
{
    return archivableClass().name;
}

void NetworkRequestRecord::encodeWithCoder(Coder &coder) const
{
    coder.encodeObject(method, kNRMethod);
    coder.encodeObject(statusCode, kNRStatusCode);
    coder.encodeObject(url, kNRUrl);
    coder.encodeObject(requestBody, kNRRequestBody);
    coder.encodeObject(encodable(requestHeaders), kNRRequestHeaders);
    coder.encodeObject(responseBody, kNRResponseBody);
    coder.encodeObject(encodable(responseHeaders), kNRResponseHeaders);
    coder.encodeObject(timestamp, kNRTimestamp);
    coder.encodeObject(encodable(duration), kNRDuration);
}

const ArchivableClass &NetworkRequestRecord::archivableClass()
{
    static const auto &description
        = *new ArchivableClass{QStringLiteral("NetworkRequestRecord"), [](const Coder &coder) {
                                   return std::make_shared<NetworkRequestRecord>(coder);
                               }}; // outlives every thread
    return description;
}

} // namespace wexel
