#pragma once

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

#include "CafeService.h"
#include "MenuItem.h"

/// What the customer is about to order, one row per item and choice of options.
class Cart : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("see App")
    Q_PROPERTY(int count READ count NOTIFY changed)
    Q_PROPERTY(int totalCents READ totalCents NOTIFY changed)
    Q_PROPERTY(bool ordering READ ordering NOTIFY orderChanged)
    Q_PROPERTY(QString failure READ failure NOTIFY orderChanged)
    Q_PROPERTY(int orderNumber READ orderNumber NOTIFY orderChanged)
    Q_PROPERTY(int orderMinutes READ orderMinutes NOTIFY orderChanged)

public:
    enum Role { NameRole = Qt::UserRole, DetailRole, PictureRole, TintRole, CentsRole, QuantityRole };

    explicit Cart(CafeService &service);

    /// Pieces, not rows.
    [[nodiscard]] int count() const;
    [[nodiscard]] int totalCents() const;
    /// True while an order is on its way to the service.
    [[nodiscard]] bool ordering() const { return m_ordering; }
    /// Why the last order was not taken, as a sentence to show; empty otherwise.
    [[nodiscard]] QString failure() const { return m_failure; }
    /// The number of the last order that was taken, or 0.
    [[nodiscard]] int orderNumber() const { return m_orderNumber; }
    /// How long until that order is ready.
    [[nodiscard]] int orderMinutes() const { return m_orderMinutes; }

    /// \param choices one index per option group of the item, see MenuItem::price
    Q_INVOKABLE void add(const MenuItem &item, const QList<int> &choices, int quantity);
    /// Removes the row at zero.
    Q_INVOKABLE void setQuantity(int row, int quantity);
    /// Sends the order. Once the service has taken it, the cart holds only what was added meanwhile.
    Q_INVOKABLE void placeOrder();

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void changed();
    void orderChanged();

private:
    struct Line {
        MenuItem item;
        QList<int> choices;
        int quantity = 0;
        [[nodiscard]] int cents() const { return item.price(choices) * quantity; }
    };
    /// The row of that item with those choices, or -1.
    [[nodiscard]] int rowOf(const MenuItem &item, const QList<int> &choices) const;
    void finishOrder(const CafeService::Answer &answer, const QList<Line> &ordered);
    void remove(const QList<Line> &ordered);

    CafeService &m_service;
    QList<Line> m_lines;
    bool m_ordering = false;
    QString m_failure;
    int m_orderNumber = 0;
    int m_orderMinutes = 0;
};
