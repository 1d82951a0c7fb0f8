#pragma once

#include <functional>

#include <QNetworkAccessManager>

namespace wexel {

class WXLNetworkRequestReporter;

/// Has a request recorded on its way through a network access manager. To be called by the manager's `createRequest`,
/// on the manager's thread.
/// \param create makes the reply from the given body, which reads like `body`
/// \return that reply, observed until it has finished or is deleted
QNetworkReply *captured(WXLNetworkRequestReporter &reporter, QNetworkAccessManager::Operation operation,
                        const QNetworkRequest &request, QIODevice *body,
                        const std::function<QNetworkReply *(QIODevice *body)> &create);

} // namespace wexel
