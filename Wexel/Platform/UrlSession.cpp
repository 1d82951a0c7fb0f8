#include "Platform/UrlSession.h"

#include <algorithm>
#include <utility>

#include <QNetworkAccessManager>
#include <QNetworkReply>

#include "Platform/BackgroundThread.h"

namespace wexel {

namespace {

/// One request's completion, which runs even when nobody answers any more.
class Task
{
public:
    explicit Task(UrlSession::Completion completion) : m_completion(std::move(completion)) { }
    Task(const Task &) = delete;
    Task &operator=(const Task &) = delete;
    ~Task()
    {
        complete({}, {},
                 Error{UrlErrorDomain, QNetworkReply::OperationCanceledError, QStringLiteral("cancelled")});
    }

    void complete(std::optional<QByteArray> data, std::optional<UrlResponse> response,
                  std::optional<Error> error)
    {
        if (const auto completion = std::exchange(m_completion, {}))
            completion(std::move(data), std::move(response), std::move(error));
    }

private:
    UrlSession::Completion m_completion;
};

/// A body that can be sent once: QNetworkAccessManager repeats a request by itself when the connection is cut before the
/// answer, which would deliver a report twice.
class OneShotBody final : public QIODevice
{
public:
    explicit OneShotBody(QByteArray bytes) : m_bytes(std::move(bytes))
    {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }
    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override { return m_bytes.size() - m_position; }

protected:
    qint64 readData(char *data, qint64 maximum) override
    {
        const qint64 size = std::min<qint64>(maximum, m_bytes.size() - m_position);
        std::copy_n(m_bytes.constData() + m_position, size, data);
        m_position += size;
        return size > 0 ? size : -1;
    }
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    QByteArray m_bytes;
    qint64 m_position = 0;
};

QNetworkRequest networkRequest(const UrlRequest &request, const UrlSessionConfiguration &configuration)
{
    QNetworkRequest result(request.url);
    result.setTransferTimeout(static_cast<int>(configuration.timeout.count()));
    result.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    // A redirected POST would lose its method or its body on the way, or show its token to another host.
    result.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                        request.method == "GET" ? QNetworkRequest::SameOriginRedirectPolicy
                                                : QNetworkRequest::ManualRedirectPolicy);
    for (const auto &[name, value] : configuration.additionalHeaders)
        result.setRawHeader(name, value);
    for (const auto &[name, value] : request.headers())
        result.setRawHeader(name, value);
    return result;
}

/// QNetworkReply reports a status such as 404 as an error too; here only a failed transport is one. A body that should
/// have been sent again tells of a connection that was cut.
bool isTransportError(QNetworkReply::NetworkError error, bool hasStatus)
{
    constexpr int firstContentError = QNetworkReply::ContentAccessDenied;
    return error != QNetworkReply::NoError
        && (!hasStatus || error < firstContentError || error == QNetworkReply::ContentReSendError
            || error == QNetworkReply::ProtocolFailure);
}

/// QNetworkReply takes what has arrived for the whole answer when that began before the request was sent completely
/// and the connection is then cut.
bool isCutShort(const QNetworkReply &reply)
{
    // Qt removes the header of an answer that it decompresses.
    return reply.bytesAvailable() < reply.header(QNetworkRequest::ContentLengthHeader).toLongLong();
}

void finish(QNetworkReply &reply, Task &task, qint64 maximumBytes)
{
    const QVariant status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute);
    const auto response = status.isValid()
        ? std::optional(UrlResponse{status.toInt(), reply.rawHeaderPairs()})
        : std::nullopt;
    const QUrl redirection = reply.attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
    if (redirection.isValid())
        task.complete({}, response,
                      Error{UrlErrorDomain, QNetworkReply::InsecureRedirectError,
                            QStringLiteral("the server redirects to %1").arg(redirection.toString())});
    else if (isTransportError(reply.error(), status.isValid()))
        task.complete({}, response, Error{UrlErrorDomain, reply.error(), reply.errorString()});
    else if (isCutShort(reply))
        task.complete({}, response,
                      Error{UrlErrorDomain, QNetworkReply::RemoteHostClosedError,
                            QStringLiteral("the answer was cut short")});
    else if (reply.bytesAvailable() > maximumBytes)
        task.complete({}, response,
                      Error{UrlErrorDomain, QNetworkReply::UnknownContentError,
                            QStringLiteral("the answer is too long")});
    else
        task.complete(reply.readAll(), response, {});
}

/// What is awaited of a reply, whose child it is. It has methods rather than lambdas that hold the task: Qt frees a
/// connection, and what that holds, on any of its threads.
class Answer final : public QObject
{
public:
    Answer(QNetworkReply &reply, std::shared_ptr<Task> task, qint64 maximumBytes)
        : QObject(&reply)
        , m_reply(reply)
        , m_task(std::move(task))
        , m_maximumBytes(maximumBytes)
    {
        connect(&reply, &QNetworkReply::downloadProgress, this, &Answer::progress);
        connect(&reply, &QNetworkReply::finished, this, &Answer::end);
    }

private:
    void progress(qint64 received)
    {
        if (received > m_maximumBytes)
            m_reply.abort();
    }
    void end()
    {
        finish(m_reply, *m_task, m_maximumBytes);
        m_reply.deleteLater();
    }

    QNetworkReply &m_reply;
    std::shared_ptr<Task> m_task;
    qint64 m_maximumBytes;
};

} // namespace

/// Lives on the background thread, with its QNetworkAccessManager.
class UrlSession::Worker final : public QObject
{
public:
    void send(const UrlRequest &request, const UrlSessionConfiguration &configuration,
              const std::shared_ptr<Task> &task)
    {
        auto *reply = begin(networkRequest(request, configuration), request);
        new Answer(*reply, task, configuration.maximumAnswerBytes);
    }

    void close() { m_manager.reset(); }

private:
    QNetworkReply *begin(QNetworkRequest networkRequest, const UrlRequest &request)
    {
        if (!m_manager)
            m_manager = std::make_unique<QNetworkAccessManager>();
        if (request.body.isEmpty())
            return m_manager->sendCustomRequest(networkRequest, request.method);
        networkRequest.setHeader(QNetworkRequest::ContentLengthHeader, request.body.size());
        networkRequest.setAttribute(QNetworkRequest::DoNotBufferUploadDataAttribute, true);
        auto *body = new OneShotBody(request.body);
        auto *reply = m_manager->sendCustomRequest(networkRequest, request.method, body);
        body->setParent(reply);
        return reply;
    }

    std::unique_ptr<QNetworkAccessManager> m_manager;
};

UrlSession::UrlSession(UrlSessionConfiguration configuration)
    : m_configuration(std::move(configuration))
    , m_worker(std::make_shared<Worker>())
{
    auto &thread = BackgroundThread::shared();
    thread.adopt(*m_worker);
    thread.performAtEnd([worker = std::weak_ptr(m_worker)] {
        if (const auto alive = worker.lock())
            alive->close();
    });
}

UrlSession::~UrlSession()
{
    // The worker and its replies may only be destroyed on their own thread.
    BackgroundThread::shared().perform([worker = std::move(m_worker)] { worker->close(); });
}

void UrlSession::dataTask(const UrlRequest &request, Completion completion)
{
    BackgroundThread::shared().perform([worker = m_worker, request, configuration = m_configuration,
                                        task = std::make_shared<Task>(std::move(completion))] {
        worker->send(request, configuration, task);
    });
}

} // namespace wexel
