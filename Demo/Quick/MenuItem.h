#pragma once

#include <optional>

#include <QColor>
#include <QJsonObject>
#include <QUrl>
#include <QVariantList>

/// One thing on the menu. Prices are in cents.
struct MenuItem {
    Q_GADGET
    Q_PROPERTY(QString itemId MEMBER itemId)
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString summary MEMBER summary)
    Q_PROPERTY(QString description MEMBER description)
    Q_PROPERTY(int cents MEMBER cents)
    Q_PROPERTY(QUrl picture MEMBER picture)
    Q_PROPERTY(QColor tint MEMBER tint)
    Q_PROPERTY(QVariantList options MEMBER options)

public:
    QString itemId;
    QString category;
    QString name;
    QString summary; ///< fits two short lines
    QString description;
    int cents = 0;
    QUrl picture;
    QColor tint; ///< the colour behind the picture
    QVariantList options; ///< groups: {"name": text, "choices": [{"name": text, "cents": extra price}]}

    /// Reads one entry of the menu's "items".
    /// \param groups the menu's "options", which the entry names by key
    /// \param base the address that the picture's is relative to
    /// \returns nothing when the name, the category or the price is missing
    [[nodiscard]] static std::optional<MenuItem> fromJson(const QJsonObject &json, const QJsonObject &groups,
                                                          const QUrl &base);

    /// The price with one choice of each group taken. \param choices an index per group; a missing one means
    /// the first
    Q_INVOKABLE [[nodiscard]] int price(const QList<int> &choices) const;
    /// The names of the choices, for example "Regular · Oat milk".
    Q_INVOKABLE [[nodiscard]] QString describe(const QList<int> &choices) const;
};
