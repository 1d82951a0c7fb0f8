// A host application that does what its arguments say, in their order, and prints the library's log.
//
//   EndToEndHost core|gui|widgets COMMAND...      which of Qt's application objects it has
//
//   trust FILE        trusts the certificates of that PEM file, beside the system's
//   start             starts the library
//   own-data          has the hook answer with report data that the host makes
//   report NUMBER     sends the automatic report of that number, with its attachment
//   screenshot TEXT   sends an automatic report with a screenshot
//   tap               presses the button in its window
//   get URL           asks for it through the recording network access manager, prints "got STATUS" when it has it
//   quit-when TEXT    QCoreApplication::quit() from the event loop as soon as the log has the text
//   exit-when TEXT    std::exit(0) likewise
//   quit | exit       both from the first turn of the event loop
//   exit-now | return before there is an event loop
//
// Prints "kept NUMBER" once a report is on disk, and "leaving MILLISECONDS" (of the steady clock) when it leaves.

#include <chrono>
#include <cstdlib>
#include <functional>
#include <map>
#include <mutex>
#include <set>

#include <unistd.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMouseEvent>
#include <QNetworkReply>
#include <QPushButton>
#include <QSslConfiguration>
#include <QStandardPaths>
#include <QTimer>
#include <QWidget>
#include <QWindow>

#include <Wexel/WXLNetworkAccessManager.h>
#include <Wexel/WXLWexel.h>

#include "NumberedReport.h"

using wexel::WXLWexel;

/// OpenSSL keeps what it knows of a refused certificate for its thread. Asked for by LeakSanitizer, if it is there.
extern "C" Q_DECL_EXPORT const char *__lsan_default_suppressions() // NOLINT(bugprone-reserved-identifier)
{
    return "leak:libcrypto.so\n";
}

namespace {

void print(const QByteArray &line)
{
    const QByteArray whole = line + '\n'; // one write, so that lines of several threads do not mix
    if (::write(STDOUT_FILENO, whole.constData(), static_cast<size_t>(whole.size())) < 0)
        std::abort();
}

std::mutex mutex; // guards what follows
std::set<QString> known; // files that were told already
QString awaited;
std::function<void()> whenLogged;

/// A report's file appears under its name when it is complete and synced, so what can be read there is kept. The
/// library logs on its working queue right after it saved, before it sends and deletes.
void tellWhatIsKept()
{
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)
                      + QStringLiteral("/Documents/WexelSavedDataDirectory"));
    for (const QString &name : folder.entryList({QStringLiteral("*.wexelreportfile")}, QDir::Files)) {
        if (!known.insert(name).second)
            continue;
        QFile file(folder.filePath(name));
        if (file.open(QIODevice::ReadOnly))
            print("kept " + QByteArray::number(NumberedReport::numberIn(file.readAll())));
    }
}

void takeLog(QtMsgType, const QMessageLogContext &, const QString &line)
{
    print(line.toUtf8());
    const std::lock_guard lock(mutex);
    if (line.startsWith(u"WXLUploader: Adding operation") || line.startsWith(u"WXLUploader - Will not start"))
        tellWhatIsKept();
    if (whenLogged && line.contains(awaited))
        QMetaObject::invokeMethod(QCoreApplication::instance(), std::exchange(whenLogged, nullptr),
                                  Qt::QueuedConnection);
}

void leaveWhenLogged(const QString &text, std::function<void()> leave)
{
    const std::lock_guard lock(mutex);
    awaited = text;
    whenLogged = std::move(leave);
}

void sayLeaving()
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    print("leaving "
          + QByteArray::number(qint64(std::chrono::duration_cast<std::chrono::milliseconds>(now).count())));
}

void quit()
{
    sayLeaving();
    QCoreApplication::quit();
}

[[noreturn]] void exitNow()
{
    sayLeaving();
    std::exit(0); // NOLINT(concurrency-mt-unsafe): what a host does while the library's threads run
}

void trust(const QString &file)
{
    auto configuration = QSslConfiguration::defaultConfiguration();
    configuration.addCaCertificates(file);
    QSslConfiguration::setDefaultConfiguration(configuration);
}

void report(const QString &argument)
{
    const int number = argument.toInt();
    WXLWexel::sharedInstance().setOnPrepareData([number](const auto &data) {
        data->attachedFiles = {std::make_shared<wexel::WXLWexelFile>(QStringLiteral("attachment.bin"),
                                                                     NumberedReport::attachment(number))};
        return data;
    });
    WXLWexel::autoReportWithDescription(NumberedReport::description(number));
}

void tap()
{
    QWindow *window = QGuiApplication::focusWindow();
    if (window == nullptr)
        return QTimer::singleShot(0, tap); // it is still coming up
    const QPointF middle(window->width() / 2.0, window->height() / 2.0);
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, middle, window->mapToGlobal(middle), Qt::LeftButton,
                          type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, {});
        QCoreApplication::sendEvent(window, &event);
    }
}

void get(const QString &url)
{
    // Outlives the application; Qt's own does not survive std::exit as a static object.
    static auto *manager = new wexel::WXLNetworkAccessManager;
    QNetworkReply *reply = manager->get(QNetworkRequest(QUrl(url)));
    QObject::connect(reply, &QNetworkReply::finished, reply, [reply] {
        print("got " + reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toByteArray());
        reply->deleteLater();
    });
}

void makeOwnReports()
{
    WXLWexel::sharedInstance().setOnPrepareData(
        [](const auto &) { return std::make_shared<wexel::WXLWexelReportData>(); });
}

/// \return false when main is to return without an event loop
bool perform(QStringList commands)
{
    const std::map<QString, std::function<void(const QString &)>> withArgument = {
        {QStringLiteral("trust"), trust},
        {QStringLiteral("report"), report},
        {QStringLiteral("screenshot"),
         [](const QString &text) { WXLWexel::autoReportWithAttachScreenshot(true, text); }},
        {QStringLiteral("get"), get},
        {QStringLiteral("quit-when"), [](const QString &text) { leaveWhenLogged(text, quit); }},
        {QStringLiteral("exit-when"), [](const QString &text) { leaveWhenLogged(text, exitNow); }},
    };
    while (!commands.isEmpty()) {
        const QString command = commands.takeFirst();
        if (command == u"start")
            WXLWexel::startWithInvocationEvents(wexel::WexelInvocationEventMotion);
        else if (command == u"tap")
            tap();
        else if (command == u"own-data")
            makeOwnReports();
        else if (command == u"quit")
            QTimer::singleShot(0, quit);
        else if (command == u"exit")
            QTimer::singleShot(0, exitNow);
        else if (command == u"exit-now")
            exitNow();
        else if (command == u"return")
            return false;
        else
            withArgument.at(command)(commands.takeFirst());
    }
    return true;
}

std::unique_ptr<QCoreApplication> makeApplication(int &argc, char **argv)
{
    const QByteArray kind = argv[1];
    if (kind == "widgets")
        return std::make_unique<QApplication>(argc, argv);
    if (kind == "gui")
        return std::make_unique<QGuiApplication>(argc, argv);
    return std::make_unique<QCoreApplication>(argc, argv);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc < 2)
        return 2;
    const auto application = makeApplication(argc, argv);
    qInstallMessageHandler(takeLog);
    std::unique_ptr<QWidget> window;
    if (qobject_cast<QApplication *>(application.get()) != nullptr) {
        window = std::make_unique<QWidget>();
        window->resize(300, 200);
        (new QPushButton(window.get()))->resize(300, 200);
        window->show();
    }
    if (perform(QCoreApplication::arguments().mid(2)))
        return QCoreApplication::exec();
    sayLeaving();
    return 0;
}
