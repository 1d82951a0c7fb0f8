#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

class Cart;

/// The calls of the library that the developer page offers, and the quick facts that go with automatic
/// reports. At most one exists at a time: it owns the library's `onPrepareData`.
class Reporting : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("see App")
    Q_PROPERTY(QString page READ page WRITE setPage NOTIFY pageChanged)
    Q_PROPERTY(
        bool blackBoxEnabled READ blackBoxEnabled WRITE setBlackBoxEnabled NOTIFY blackBoxEnabledChanged)

public:
    explicit Reporting(const Cart &cart);
    ~Reporting() override;

    /// The page on screen, as a quick fact.
    [[nodiscard]] QString page() const { return m_page; }
    void setPage(const QString &page);
    /// On at every start: the library does not keep the switch between runs.
    [[nodiscard]] bool blackBoxEnabled() const { return m_blackBoxEnabled; }
    void setBlackBoxEnabled(bool enabled);

    Q_INVOKABLE void reportWithScreenshot(const QString &description);
    Q_INVOKABLE void reportWithoutScreenshot(const QString &description);
    Q_INVOKABLE void reportAutomatically();

Q_SIGNALS:
    void pageChanged();
    void blackBoxEnabledChanged();

private:
    [[nodiscard]] QString quickFacts() const;

    const Cart &m_cart;
    QString m_page;
    bool m_blackBoxEnabled = true;
};
