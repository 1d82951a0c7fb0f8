#include <QApplication>
#include <QCommandLineParser>

#include "Appearance.h"
#include "NotebookWindow.h"
#include "Reporting.h"

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("wexel-demo-editor"));
    QApplication::setApplicationDisplayName(QStringLiteral("Fieldnotes"));
    QApplication::setApplicationVersion(QStringLiteral("2.1.0"));
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("files"), QStringLiteral("Notes to open."),
                                 QStringLiteral("[FILE...]"));
    parser.process(application);

    applyAppearance(application);
    NotebookWindow window;
    window.openSamples();
    window.show();
    for (const QString &path : parser.positionalArguments())
        window.openNote(path);
    const Reporting reporting(window);
    return QApplication::exec();
}
