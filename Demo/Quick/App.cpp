#include "App.h"

#include <QQmlEngine>

App::App(QNetworkAccessManager &network)
    : m_service(network)
    , m_menu(m_service)
    , m_cart(m_service)
    , m_reporting(m_cart)
{
}

App *App::create(QQmlEngine *engine, QJSEngine *)
{
    return new App(*engine->networkAccessManager());
}

void App::start(const QUrl &serviceAddress)
{
    m_service.setAddress(serviceAddress);
    m_menu.load();
}
