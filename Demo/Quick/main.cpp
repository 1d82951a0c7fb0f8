#include <optional>

#include <QCommandLineParser>
#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QTranslator>

#include <Wexel/WXLNetworkAccessManagerFactory.h>
#include <Wexel/WXLWexel.h>

#include "App.h"

namespace {

/// The address of `--menu`, empty without one; nothing, and a message, when it is no such address.
std::optional<QUrl> menuAddress(const QCoreApplication &application)
{
    QCommandLineParser parser;
    const QCommandLineOption menu(QStringLiteral("menu"), QStringLiteral("Address of cafe-menu-service."),
                                  QStringLiteral("URL"));
    parser.addHelpOption();
    parser.addOption(menu);
    parser.process(application);
    if (!parser.isSet(menu))
        return QUrl();
    QUrl address(parser.value(menu));
    if ((address.scheme() != u"http" && address.scheme() != u"https") || address.host().isEmpty()) {
        qCritical().noquote() << "--menu: expected an address such as http://127.0.0.1:8080/, got"
                              << parser.value(menu);
        return std::nullopt;
    }
    if (!address.path().endsWith(u'/'))
        address.setPath(address.path() + u'/');
    return address;
}

} // namespace

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    QGuiApplication::setApplicationName(QStringLiteral("wexel-demo-cafe"));
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Linden Café"));

    QTranslator flow; // the library's screens in the user's language, where there is a translation
    if (flow.load(QLocale(), QStringLiteral("wexel"), QStringLiteral("_"),
                  QCoreApplication::applicationDirPath() + QStringLiteral("/../share/wexel/translations")))
        QCoreApplication::installTranslator(&flow);

    const std::optional<QUrl> address = menuAddress(application);
    if (!address)
        return 2;
    wexel::WXLNetworkAccessManagerFactory networkManagers; // its requests appear in the reports
    QQmlApplicationEngine engine;
    engine.setNetworkAccessManagerFactory(&networkManagers);
    engine.load(QUrl(QStringLiteral("qrc:/Cafe/Main.qml")));
    if (engine.rootObjects().isEmpty())
        return 1;

    wexel::WXLWexel::startWithInvocationEvents(wexel::WexelInvocationEventMotion
                                               | wexel::WexelInvocationEventButton);
    // The type is known only once the document has imported the module.
    auto *app = engine.singletonInstance<App *>(qmlTypeId("Cafe", 1, 0, "App"));
    app->start(*address);
    return QGuiApplication::exec();
}
