#include "MenuModel.h"

#include <algorithm>

#include <QJsonArray>

#include "Log.h"

namespace {

QList<MenuItem> itemsOf(const QJsonObject &menu, const QUrl &base)
{
    QList<MenuItem> items;
    for (const auto entry : menu[u"items"].toArray()) {
        if (const auto item = MenuItem::fromJson(entry.toObject(), menu[u"options"].toObject(), base))
            items << *item;
    }
    return items;
}

} // namespace

MenuModel::MenuModel(CafeService &service) : m_service(service) { }

void MenuModel::load()
{
    setStatus(Loading);
    m_service.fetchMenu(this, [this](const CafeService::Answer &answer) { take(answer); });
}

void MenuModel::take(const CafeService::Answer &answer)
{
    if (!answer.error.isEmpty())
        return setStatus(Failed, answer.error);
    m_items = itemsOf(answer.json, m_service.address());
    m_categories = answer.json[u"categories"].toArray().toVariantList();
    if (m_items.isEmpty() || m_categories.isEmpty())
        return setStatus(Failed, tr("The menu is empty today."));
    setStatus(Ready);
    setCategory(m_categories.first().toMap()[QStringLiteral("id")].toString());
}

void MenuModel::setStatus(Status status, const QString &errorText)
{
    m_status = status;
    m_errorText = errorText;
    if (status != Loading)
        qCInfo(cafe).noquote() << (status == Ready ? QStringLiteral("Menu: ready")
                                                   : QStringLiteral("Menu: ") + errorText);
    Q_EMIT statusChanged();
}

void MenuModel::setCategory(const QString &id)
{
    beginResetModel();
    m_category = id;
    m_shown.clear();
    std::copy_if(m_items.cbegin(), m_items.cend(), std::back_inserter(m_shown),
                 [&](const MenuItem &item) { return item.category == id; });
    endResetModel();
    Q_EMIT categoryChanged();
}

int MenuModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_shown.size());
}

QVariant MenuModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) || role != ItemRole)
        return {};
    return QVariant::fromValue(m_shown.at(index.row()));
}

QHash<int, QByteArray> MenuModel::roleNames() const
{
    return {{ItemRole, "item"}};
}
