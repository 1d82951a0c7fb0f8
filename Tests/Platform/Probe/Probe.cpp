#include <cstdio>
#include <memory>

#include <QGuiApplication>
#include <QTextStream>

#include "Platform/Bundle.h"
#include "Platform/DeviceFacts.h"

__attribute__((visibility("default"))) int runProbe(int argc, char **argv);

// Prints what a host finds out about itself, a line each; with "--no-gui" as a program without a screen.
int runProbe(int argc, char **argv)
{
    const bool hasGui = argc < 2 || qstrcmp(argv[1], "--no-gui") != 0;
    const auto application = hasGui ? std::unique_ptr<QCoreApplication>(new QGuiApplication(argc, argv))
                                    : std::make_unique<QCoreApplication>(argc, argv);
    QCoreApplication::setOrganizationDomain(QStringLiteral("tests.example.com"));
    QCoreApplication::setApplicationName(QStringLiteral("Probe"));
    const auto facts = wexel::makeDeviceFacts();
    QTextStream(stdout)
        << wexel::Bundle::library().path() << '\n'
        << wexel::Bundle::main().path() << '\n'
        << wexel::Bundle::main().objectForInfoDictionaryKey(QStringLiteral("CFBundleIdentifier")).toString()
        << '\n'
        << facts->screenWidth() << 'x' << facts->screenHeight() << ' ' << facts->deviceOrientation() << '\n'
        << facts->localeIdentifier().value_or(QStringLiteral("none")) << '\n'
        << facts->services().canAuthenticateOwner << '\n';
    return 0;
}
