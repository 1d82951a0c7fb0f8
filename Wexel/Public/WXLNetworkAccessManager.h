#pragma once

#include <QtCore/QLatin1String>
#include <QtNetwork/QNetworkAccessManager>

#include <Wexel/WexelExport.h>

namespace wexel {

/// How many bytes of a request's and of an answer's body a report shows, and how the text of a longer one ends.
inline constexpr qsizetype WexelMaximumBodyBytes = 16 * 1024;
inline constexpr QLatin1String WexelBodyCutMark{"\n[cut by Wexel]"};

/// A QNetworkAccessManager whose requests and answers appear in the reports. Make this one instead and use it as
/// before:
///
///     wexel::WXLNetworkAccessManager network;
///
/// Every reply is Qt's own; bytes, signals, errors, progress and cookies are what they are without the library.
///
/// Recorded of each request: method, address, all headers that it was made with, the body, the time; of its answer:
/// status, all headers, the body, and how long it took. That includes secrets, such as an Authorization header or a
/// password in a body. With redirects it is the first address and the last answer. A request is recorded when it is
/// made, and again when it has finished or its reply is deleted before that.
///
/// Not recorded: requests to the backend (to any host whose name is part of the backend's address), addresses without a
/// host ("data:", "file:"), connections that are only opened, and what is made before the application object exists or
/// after it has gone.
///
/// Of a body the first `WexelMaximumBodyBytes` are kept; a longer one ends with `WexelBodyCutMark`. A body that is not
/// UTF-8 text, an image for example, leaves an empty text. So does a compressed answer that the host reads bit by bit,
/// if the reply's read buffer is limited or the manager has a cache: to look at it would change what is fetched or
/// cached. A body that is sent from a device other than a QBuffer is kept as Qt reads it, and appears with the answer.
///
/// Threads: as QNetworkAccessManager, one at a time, any thread. May be made before `WXLWexel::start()` and may outlive
/// the application object; set the application's name, organisation and domain before the first request, as they decide
/// where the records lie. No errors of its own.
class WEXEL_EXPORT WXLNetworkAccessManager : public QNetworkAccessManager
{
public:
    explicit WXLNetworkAccessManager(QObject *parent = nullptr);
    ~WXLNetworkAccessManager() override;

protected:
    /// A subclass that has its own calls this one; what it passes on is what is recorded.
    QNetworkReply *createRequest(Operation operation, const QNetworkRequest &request,
                                 QIODevice *outgoingData = nullptr) override;
};

} // namespace wexel
