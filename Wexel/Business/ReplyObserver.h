#pragma once

#include <optional>

#include <QNetworkReply>

#include "Platform/UrlSession.h"

namespace wexel {

/// Sees an answer arrive without taking anything of it, and passes it to a completion, once: when the reply has
/// finished, or when it goes before that. Belongs to the reply and lives on its thread. Made before anybody else can be
/// connected to the reply, so that it looks before the host reads.
///
/// The bytes that the host has not read yet are looked at each time that there are more. How many of them are new
/// follows from how many were left before they came: hence the event filter.
class ReplyObserver final : public QObject
{
public:
    ReplyObserver(QNetworkReply &reply, UrlSession::Completion completion);
    ~ReplyObserver() override;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool noticeReading();
    void noticeArrival();
    void look();
    [[nodiscard]] bool isLookingFree() const;
    void stopLooking();
    void takeHead();
    void noticeRedirect();
    void finish();
    void complete(std::optional<Error> error);

    QNetworkReply &m_reply;
    UrlSession::Completion m_completion;
    QMetaObject::Connection m_readyRead;
    std::optional<UrlResponse> m_response;
    QByteArray m_body;
    qint64 m_unread = 0; ///< bytes that the host had not read at the last moment known
    qint64 m_seen = 0; ///< how many of these, from the first, are in `m_body`
    bool m_isLooking = true;
    bool m_isRedirected = false;
};

} // namespace wexel
