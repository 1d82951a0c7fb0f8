// LateHost LIBRARY late|anew   a host that loads the library by hand and is tapped once.
//
// late: on another thread, when its window is already there. anew: at once, for an application without windows, one that
// nobody taps, and then the one that is tapped.

#include <thread>

#include <QGuiApplication>
#include <QLibrary>
#include <QRasterWindow>
#include <QTest>

namespace {

bool load(const char *path)
{
    QLibrary library(QString::fromLocal8Bit(path));
    const bool loaded = library.load();
    if (!loaded)
        qWarning("%s", qPrintable(library.errorString()));
    library.unload(); // it stays all the same
    return loaded;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3)
        return 2;
    const bool isLate = qstrcmp(argv[2], "late") == 0;
    if (!isLate && !load(argv[1]))
        return 1;
    if (!isLate) {
        const QCoreApplication bare(argc, argv);
    }
    if (!isLate) {
        const QGuiApplication untapped(argc, argv);
    }
    const QGuiApplication application(argc, argv);
    QRasterWindow window;
    window.resize(50, 50);
    window.show();
    bool loaded = true;
    if (isLate)
        std::thread([&] { loaded = load(argv[1]); }).join();
    QCoreApplication::processEvents();
    QTest::mouseClick(&window, Qt::LeftButton);
    return loaded ? 0 : 1;
}
