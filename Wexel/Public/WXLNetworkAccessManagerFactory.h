#pragma once

#include <QtQml/QQmlNetworkAccessManagerFactory>

#include <Wexel/WXLNetworkAccessManager.h>

namespace wexel {

/// Lets a QML engine make its requests (XMLHttpRequest, Image, remote documents ...) through WXLNetworkAccessManager.
/// Declare it before the engine, which does not own it and must go first:
///
///     wexel::WXLNetworkAccessManagerFactory networkManagers;
///     QQmlEngine engine;
///     engine.setNetworkAccessManagerFactory(&networkManagers);
///
/// Thread-safe: an engine makes managers on several threads. A subclass may set up what `create` returns (a cache,
/// cookies). The host that includes this header links Qt6::Qml; nothing else of the library needs it.
class WXLNetworkAccessManagerFactory : public QQmlNetworkAccessManagerFactory
{
public:
    QNetworkAccessManager *create(QObject *parent) override { return new WXLNetworkAccessManager(parent); }
};

} // namespace wexel
