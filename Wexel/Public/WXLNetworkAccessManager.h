#pragma once

#include <QtCore/QLatin1String>
#include <QtNetwork/QNetworkAccessManager>

#include <Wexel/WexelExport.h>

namespace wexel {

/// A QNetworkAccessManager whose requests and answers appear in the reports. Make this one instead and use it as before:
///
///     wexel::WXLNetworkAccessManager network;
///
/// Every reply is Qt's own; bytes, signals, errors, progress and cookies are what they are without the library.
///
/// Recorded of each request to a host: method, address, all headers that the request was made with, the body, the
/// time; of its answer: status, all headers, the body, and how long it took. That includes secrets such as an
/// Authorization header or a password in a body. With redirects it is the first address and the last answer. A request
/// is recorded when it is made, and once more when it has finished or its reply is deleted before that. Not recorded:
/// requests to the host that the reports go to, addresses without a host ("data:", "file:"), and anything made before
/// the application object exists or after it has gone.
///
/// Of a body the first `maximumBodyBytes` are kept; a longer one ends with `cutMark`. A body that is not UTF-8 text, an
/// image for example, leaves an empty text. So does an answer that Qt decompresses while the host reads it bit by bit
/// from a reply with a read buffer limit or from a manager with a cache: to look at it would change what is cached or
/// fetched. A streamed request body is kept as Qt reads it and appears with the answer.
///
/// Threads: as QNetworkAccessManager, one thread at a time, any thread. May be made before `WXLWexel::start()` and may
/// outlive the application object. Set the application's name, organisation and domain before the first request. No
/// errors of its own.
class WEXEL_EXPORT WXLNetworkAccessManager : public QNetworkAccessManager
{
public:
    static constexpr qsizetype maximumBodyBytes = 16 * 1024;
    static constexpr QLatin1String cutMark{"\n[cut by Wexel]"};

    explicit WXLNetworkAccessManager(QObject *parent = nullptr);
    ~WXLNetworkAccessManager() override;

protected:
    /// A subclass that has its own calls this one; what it passes on is what is recorded.
    QNetworkReply *createRequest(Operation operation, const QNetworkRequest &request,
                                 QIODevice *outgoingData = nullptr) override;
};

} // namespace wexel
