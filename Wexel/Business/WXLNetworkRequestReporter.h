#pragma once

#include <functional>
#include <optional>

#include <QString>
#include <QVariantList>

#include <Wexel/WXLNetworkAccessManager.h>

#include "Business/WXLTimeQueue.h"
#include "Platform/UrlSession.h"

namespace wexel {

class NetworkRequestRecord;
class WXLAppRepository;
class WXLDateProvider;

/// Records the requests that the host makes, with their answers, as NetworkRequestRecord. Thread-safe; the caller only
/// pays for making the record, never for the disk.
class WXLNetworkRequestReporter
{
public:
    /// The first of a body's bytes that are worth passing: one more than is kept tells a longer body.
    static constexpr qsizetype wantedBodyBytes = WexelMaximumBodyBytes + 1;
    /// What has been sent of a body that is streamed.
    using SentBody = std::function<QByteArray()>;

    /// \param baseUrl the backend's address; requests to its host are not recorded. The collaborators outlive the
    ///        reporter and its background work.
    WXLNetworkRequestReporter(WXLAppRepository &repository, const WXLDateProvider &dateProvider,
                              QString baseUrl);
    /// Over the application's own store. Made on first use, on any thread, once the application object exists.
    static WXLNetworkRequestReporter &shared();

    /// Records the start of a request.
    /// \param sentBody asked at the completion, in place of the request's own body
    /// \return what to call with the answer: it records that and calls `completionHandler`, which may be empty, with
    ///         the same values. For a request that is not recorded (the backend's, one without a host, or when the
    ///         application is ending) it is `completionHandler` itself
    [[nodiscard]] UrlSession::Completion report(const UrlRequest &request,
                                                UrlSession::Completion completionHandler,
                                                const SentBody &sentBody = {});
    /// Drops, in the background, what is strictly older than the limit.
    void removeRecordsOlderThan(const QDateTime &limit);
    /// The stored records, in the order in which they were last changed; nothing when there are none or they cannot be
    /// read.
    [[nodiscard]] static std::optional<QVariantList>
    networkRequestHistory(const WXLAppRepository &repository);

    [[nodiscard]] const WXLTimeQueue &timeEventQueue() const { return m_timeEventQueue; }
    [[nodiscard]] const QString &baseUrl() const { return m_baseUrl; }

private:
    using Change = std::function<void(NetworkRequestRecord &)>;
    [[nodiscard]] bool isRecorded(const QUrl &url) const;
    void push(const std::shared_ptr<NetworkRequestRecord> &record, Change change = {});

    WXLAppRepository &m_repository;
    const WXLDateProvider &m_dateProvider;
    const QString m_baseUrl;
    WXLTimeQueue m_timeEventQueue;
};

} // namespace wexel
