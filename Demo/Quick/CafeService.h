#pragma once

#include <functional>

#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QObject>
#include <QUrl>

/// The café's service over HTTP. Main thread.
class CafeService : public QObject
{
    Q_OBJECT

public:
    /// Exactly one of `json` and `error` holds something; the error is a sentence to show.
    struct Answer {
        QJsonObject json;
        QString error;
    };
    using Completion = std::function<void(const Answer &)>;

    /// \param network outlives this object
    explicit CafeService(QNetworkAccessManager &network);

    [[nodiscard]] const QUrl &address() const { return m_address; }
    /// \param address ends with a slash; while it is empty every call fails and says so
    void setAddress(const QUrl &address) { m_address = address; }
    /// `completion` runs later on the main thread, and not at all once `context` is gone.
    void fetchMenu(QObject *context, const Completion &completion);
    void placeOrder(const QJsonObject &order, QObject *context, const Completion &completion);

private:
    void send(const QByteArray &verb, const QString &path, const QByteArray &body, QObject *context,
              const Completion &completion);

    QNetworkAccessManager &m_network;
    QUrl m_address;
};
