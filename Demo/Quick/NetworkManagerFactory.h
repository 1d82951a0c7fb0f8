#pragma once

#include <QNetworkAccessManager>
#include <QQmlNetworkAccessManagerFactory>

/// Makes every network access manager of the app: the QML engine's (pictures) and the café service's.
/// Thread-safe.
class NetworkManagerFactory : public QQmlNetworkAccessManagerFactory
{
public:
    QNetworkAccessManager *create(QObject *parent) override { return new QNetworkAccessManager(parent); }
};
