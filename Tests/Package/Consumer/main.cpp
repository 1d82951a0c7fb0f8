// The smallest host: starts the library, sends one report and waits to be ended.

#include <QCoreApplication>

#include <Wexel/WXLNetworkAccessManager.h>
#include <Wexel/WXLWexel.h>

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const wexel::WXLNetworkAccessManager network; // linked with what it is derived from
    wexel::WXLWexel::start();
    wexel::WXLWexel::autoReportWithDescription(application.arguments().value(1));
    return application.exec();
}
