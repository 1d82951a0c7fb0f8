#include "MenuItem.h"

#include <QJsonArray>

namespace {

QVariantMap choiceAt(const QVariant &group, int index)
{
    const QVariantList choices = group.toMap().value(QStringLiteral("choices")).toList();
    return choices.value(index).toMap();
}

/// Calls `take` with the chosen entry of each group.
template <typename Take>
void forEachChoice(const QVariantList &groups, const QList<int> &choices, Take take)
{
    for (qsizetype i = 0; i < groups.size(); ++i)
        take(choiceAt(groups.at(i), choices.value(i, 0)));
}

} // namespace

std::optional<MenuItem> MenuItem::fromJson(const QJsonObject &json, const QJsonObject &groups,
                                           const QUrl &base)
{
    MenuItem item;
    item.itemId = json[u"id"].toString();
    item.category = json[u"category"].toString();
    item.name = json[u"name"].toString();
    item.summary = json[u"summary"].toString();
    item.description = json[u"description"].toString();
    item.cents = json[u"cents"].toInt(-1);
    item.picture = base.resolved(QUrl(json[u"picture"].toString()));
    item.tint = QColor(json[u"tint"].toString());
    for (const auto group : json[u"options"].toArray()) {
        if (groups.contains(group.toString()))
            item.options << groups[group.toString()].toObject().toVariantMap();
    }
    if (item.name.isEmpty() || item.category.isEmpty() || item.cents < 0)
        return std::nullopt;
    return item;
}

int MenuItem::price(const QList<int> &choices) const
{
    int total = cents;
    forEachChoice(options, choices,
                  [&](const QVariantMap &choice) { total += choice[QStringLiteral("cents")].toInt(); });
    return total;
}

QString MenuItem::describe(const QList<int> &choices) const
{
    QStringList names;
    forEachChoice(options, choices,
                  [&](const QVariantMap &choice) { names << choice[QStringLiteral("name")].toString(); });
    return names.join(QStringLiteral(" · "));
}
