#pragma once

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

#include "CafeService.h"
#include "MenuItem.h"

/// The menu as a list of the items of one category. Loading → Ready or Failed; `load` starts over from any of
/// them.
class MenuModel : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("see App")
    Q_PROPERTY(Status status READ status NOTIFY statusChanged)
    Q_PROPERTY(QString errorText READ errorText NOTIFY statusChanged)
    Q_PROPERTY(QVariantList categories READ categories NOTIFY statusChanged)
    Q_PROPERTY(QString category READ category WRITE setCategory NOTIFY categoryChanged)

public:
    enum Status { Loading, Ready, Failed };
    Q_ENUM(Status)
    enum Role { ItemRole = Qt::UserRole };

    explicit MenuModel(CafeService &service);

    [[nodiscard]] Status status() const { return m_status; }
    /// Why loading failed, as a sentence to show.
    [[nodiscard]] QString errorText() const { return m_errorText; }
    /// Maps with "id" and "name", in the menu's order.
    [[nodiscard]] QVariantList categories() const { return m_categories; }
    /// The id of the category whose items are listed.
    [[nodiscard]] QString category() const { return m_category; }
    void setCategory(const QString &id);
    Q_INVOKABLE void load();

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void statusChanged();
    void categoryChanged();

private:
    void take(const CafeService::Answer &answer);
    void setStatus(Status status, const QString &errorText = {});

    CafeService &m_service;
    Status m_status = Loading;
    QString m_errorText;
    QVariantList m_categories;
    QString m_category;
    QList<MenuItem> m_items; ///< of every category
    QList<MenuItem> m_shown; ///< of the chosen one
};
