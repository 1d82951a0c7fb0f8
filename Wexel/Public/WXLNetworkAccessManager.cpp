#include <Wexel/WXLNetworkAccessManager.h>

#include <QCoreApplication>

#include "Business/RequestCapture.h"
#include "Business/WXLNetworkRequestReporter.h"
#include "Platform/ApplicationEnd.h"

namespace wexel {

WXLNetworkAccessManager::WXLNetworkAccessManager(QObject *parent) : QNetworkAccessManager(parent) { }

WXLNetworkAccessManager::~WXLNetworkAccessManager() = default;

QNetworkReply *WXLNetworkAccessManager::createRequest(Operation operation, const QNetworkRequest &request,
                                                      QIODevice *outgoingData)
{
    const auto create
        = [&](QIODevice *body) { return QNetworkAccessManager::createRequest(operation, request, body); };
    // The store lies where the application's name says.
    if (!QCoreApplication::instance() || ApplicationEnd::hasBegun())
        return create(outgoingData);
    return captured(WXLNetworkRequestReporter::shared(), operation, request, outgoingData, create);
}

} // namespace wexel
