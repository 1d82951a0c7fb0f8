#pragma once

#include <QtQml/qqmlregistration.h>

#include "CafeService.h"
#include "Cart.h"
#include "MenuModel.h"
#include "Reporting.h"

class QJSEngine;
class QQmlEngine;

/// What the pages work with: the QML singleton `App`, owned by the engine.
class App : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(MenuModel *menu READ menu CONSTANT)
    Q_PROPERTY(Cart *cart READ cart CONSTANT)
    Q_PROPERTY(Reporting *reporting READ reporting CONSTANT)

public:
    /// Talks to the service through the engine's network access manager.
    static App *create(QQmlEngine *engine, QJSEngine *scripts);

    [[nodiscard]] MenuModel *menu() { return &m_menu; }
    [[nodiscard]] Cart *cart() { return &m_cart; }
    [[nodiscard]] Reporting *reporting() { return &m_reporting; }
    /// Fetches the menu from there. \param serviceAddress ends with a slash; empty for none
    void start(const QUrl &serviceAddress);

private:
    explicit App(QNetworkAccessManager &network);

    CafeService m_service;
    MenuModel m_menu;
    Cart m_cart;
    Reporting m_reporting;
};
