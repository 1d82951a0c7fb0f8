#include <cstdlib>

#include <QCommandLineParser>
#include <QGuiApplication>
#include <QQmlApplicationEngine>

#include <Wexel/WXLWexel.h>

#include "App.h"
#include "NetworkManagerFactory.h"

namespace
{

/// The address of `--menu`, empty without one; ends the program with a message on one that is none.
QUrl menuAddress(const QCoreApplication &application)
{
    QCommandLineParser parser;
    const QCommandLineOption menu(QStringLiteral("menu"), QStringLiteral("Address of cafe-menu-service."),
                                  QStringLiteral("URL"));
    parser.addHelpOption();
    parser.addOption(menu);
    parser.process(application);
    QUrl address(parser.value(menu));
    const bool http = address.scheme() == u"http" || address.scheme() == u"https";
    if (parser.isSet(menu) && !(http && !address.host().isEmpty())) {
        qCritical().noquote() << "--menu: expected an address such as http://127.0.0.1:8080/, got"
                              << parser.value(menu);
        std::exit(2);
    }
    if (!address.isEmpty() && !address.path().endsWith(u'/'))
        address.setPath(address.path() + u'/');
    return address;
}

} // namespace

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    QGuiApplication::setApplicationName(QStringLiteral("wexel-demo-cafe"));
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Linden Café"));

    const QUrl address = menuAddress(application);
    NetworkManagerFactory networkManagers;
    QQmlApplicationEngine engine;
    engine.setNetworkAccessManagerFactory(&networkManagers);
    engine.load(QUrl(QStringLiteral("qrc:/Cafe/Main.qml")));
    if (engine.rootObjects().isEmpty())
        return 1;

    wexel::WXLWexel::startWithInvocationEvents(wexel::WexelInvocationEventMotion
                                               | wexel::WexelInvocationEventButton);
    // The type is known only once the document has imported the module.
    auto *app = engine.singletonInstance<App *>(qmlTypeId("Cafe", 1, 0, "App"));
    app->start(address);
    return QGuiApplication::exec();
}
