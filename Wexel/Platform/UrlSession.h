#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

#include <QByteArray>
#include <QList>
#include <QPair>
#include <QUrl>

#include "Platform/Error.h"

namespace wexel {

/// Domain of the transport's errors; the code is a QNetworkReply::NetworkError.
inline const QString UrlErrorDomain = QStringLiteral("QNetworkReply");

using HeaderFields = QList<QPair<QByteArray, QByteArray>>;

/// A request before it is sent. Header names compare without case; their order is kept.
class UrlRequest
{
public:
    QUrl url;
    QByteArray method = QByteArrayLiteral("GET");
    QByteArray body;

    /// Joins a second value of the same header to the first with a comma.
    void addValue(const QByteArray &value, const QByteArray &header);
    /// Replaces every value of the header.
    void setValue(const QByteArray &value, const QByteArray &header);
    [[nodiscard]] std::optional<QByteArray> value(const QByteArray &header) const;
    [[nodiscard]] const HeaderFields &headers() const { return m_headers; }

private:
    HeaderFields m_headers;
};

/// The statuses that somebody asks for.
enum HttpStatus { Ok = 200, Forbidden = 403, NotFound = 404 };

struct UrlResponse {
    int statusCode = 0;
    HeaderFields headers = {};
};

struct UrlSessionConfiguration {
    /// Sent with every request that does not set the header itself.
    HeaderFields additionalHeaders = {};
    /// A request that makes no progress for this long fails.
    std::chrono::milliseconds timeout{60'000};
    /// A longer answer is refused while it arrives.
    qint64 maximumAnswerBytes = 16 * 1024 * 1024;
};

/// An HTTP client on the library's background thread: platform TLS verification, no cache. A redirect is followed for
/// a GET within the same origin, any other is a failure. Thread-safe. Completions run one at a time, on the background
/// thread, or on the caller's when the application is already ending.
class UrlSession
{
public:
    /// Whatever the status, an answer that arrived whole comes with its body (possibly empty) and no error.
    /// A transport failure comes with an error and no body, and with a response when its head had arrived.
    using Completion = std::function<void(std::optional<QByteArray> data, std::optional<UrlResponse> response,
                                          std::optional<Error> error)>;

    explicit UrlSession(UrlSessionConfiguration configuration);
    /// Requests in flight are abandoned, their completions run with an error.
    ~UrlSession();
    UrlSession(const UrlSession &) = delete;
    UrlSession &operator=(const UrlSession &) = delete;

    /// Sends the request; the completion always runs, exactly once.
    void dataTask(const UrlRequest &request, Completion completion);

private:
    class Worker;
    UrlSessionConfiguration m_configuration;
    std::shared_ptr<Worker> m_worker;
};

} // namespace wexel
