#include "Cart.h"

#include <algorithm>
#include <numeric>

#include <QJsonArray>

#include "Log.h"

Cart::Cart(CafeService &service) : m_service(service)
{
    connect(this, &Cart::changed, this,
            [this] { qCInfo(cafe).noquote() << "Cart:" << count() << "items," << totalCents() << "cents"; });
}

int Cart::count() const
{
    return std::accumulate(m_lines.cbegin(), m_lines.cend(), 0,
                           [](int sum, const Line &line) { return sum + line.quantity; });
}

int Cart::totalCents() const
{
    return std::accumulate(m_lines.cbegin(), m_lines.cend(), 0,
                           [](int sum, const Line &line) { return sum + line.cents(); });
}

void Cart::add(const MenuItem &item, const QList<int> &choices, int quantity)
{
    QList<int> taken;
    for (qsizetype i = 0; i < item.options.size(); ++i)
        taken << choices.value(i, 0);
    if (const int row = rowOf(item, taken); row >= 0)
        return setQuantity(row, m_lines.at(row).quantity + quantity);
    beginInsertRows({}, int(m_lines.size()), int(m_lines.size()));
    m_lines << Line{item, taken, quantity};
    endInsertRows();
    Q_EMIT changed();
}

int Cart::rowOf(const MenuItem &item, const QList<int> &choices) const
{
    const auto same = std::find_if(m_lines.cbegin(), m_lines.cend(), [&](const Line &line) {
        return line.item.itemId == item.itemId && line.choices == choices;
    });
    return same == m_lines.cend() ? -1 : int(same - m_lines.cbegin());
}

void Cart::setQuantity(int row, int quantity)
{
    if (row < 0 || row >= m_lines.size())
        return;
    if (quantity <= 0) {
        beginRemoveRows({}, row, row);
        m_lines.removeAt(row);
        endRemoveRows();
    } else {
        m_lines[row].quantity = quantity;
        Q_EMIT dataChanged(index(row), index(row), {CentsRole, QuantityRole});
    }
    Q_EMIT changed();
}

void Cart::placeOrder()
{
    if (m_ordering || m_lines.isEmpty())
        return;
    QJsonArray lines;
    for (const Line &line : m_lines) {
        lines << QJsonObject{{QStringLiteral("item"), line.item.itemId},
                             {QStringLiteral("choices"), line.item.describe(line.choices)},
                             {QStringLiteral("quantity"), line.quantity}};
    }
    m_ordering = true;
    m_failure.clear();
    Q_EMIT orderChanged();
    m_service.placeOrder(
        {{QStringLiteral("lines"), lines}}, this,
        [this, ordered = m_lines](const CafeService::Answer &answer) { finishOrder(answer, ordered); });
}

void Cart::finishOrder(const CafeService::Answer &answer, const QList<Line> &ordered)
{
    m_ordering = false;
    m_failure = answer.error;
    if (m_failure.isEmpty()) {
        m_orderNumber = answer.json[u"number"].toInt();
        m_orderMinutes = answer.json[u"minutes"].toInt();
        remove(ordered);
    }
    Q_EMIT orderChanged();
}

void Cart::remove(const QList<Line> &ordered)
{
    for (const Line &line : ordered) {
        if (const int row = rowOf(line.item, line.choices); row >= 0)
            setQuantity(row, m_lines.at(row).quantity - line.quantity);
    }
}

int Cart::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_lines.size());
}

QVariant Cart::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Line &line = m_lines.at(index.row());
    switch (role) {
    case NameRole:
        return line.item.name;
    case DetailRole:
        return line.item.describe(line.choices);
    case PictureRole:
        return line.item.picture;
    case TintRole:
        return line.item.tint;
    case CentsRole:
        return line.cents();
    case QuantityRole:
        return line.quantity;
    default:
        return {};
    }
}

QHash<int, QByteArray> Cart::roleNames() const
{
    return {{NameRole, "name"}, {DetailRole, "detail"}, {PictureRole, "picture"},
            {TintRole, "tint"}, {CentsRole, "cents"},   {QuantityRole, "quantity"}};
}
