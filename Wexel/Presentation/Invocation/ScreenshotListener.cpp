#include "Presentation/Invocation/ScreenshotListener.h"

#include <utility>

#include <QDir>
#include <QGuiApplication>
#include <QKeyEvent>

#include "Platform/NotificationCenter.h"

namespace wexel {

namespace {

const QString screenshots = QStringLiteral("Screenshots");

/// Among the user's pictures in general only what is named as a screenshot is one.
QSet<QString> screenshotsIn(const QString &folder)
{
    const bool areAll = QDir(folder).dirName() == screenshots;
    QStringList patterns;
    for (const QLatin1String suffix :
         {QLatin1String("png"), QLatin1String("jpg"), QLatin1String("jpeg"), QLatin1String("webp")})
        patterns.append((areAll ? QStringLiteral("*.") : QStringLiteral("Screenshot*.")) + suffix);
    const QStringList names = QDir(folder).entryList(patterns, QDir::Files, QDir::NoSort);
    return {names.begin(), names.end()};
}

} // namespace

ScreenshotListener::ScreenshotListener(QObject *application, NotificationCenter &center, QString pictures)
    : QObject(application)
    , m_center(center)
    , m_pictures(std::move(pictures))
{
    application->installEventFilter(this);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &ScreenshotListener::folderChanged);
    // Not now: the host is about to start, and a folder may be large.
    QMetaObject::invokeMethod(this, &ScreenshotListener::watch, Qt::QueuedConnection);
}

void ScreenshotListener::watch()
{
    for (const QString &folder : {m_pictures, m_pictures + QLatin1Char('/') + screenshots}) {
        if (!m_known.contains(folder) && QDir(folder).exists() && m_watcher.addPath(folder))
            m_known.insert(folder, screenshotsIn(folder));
    }
}

bool ScreenshotListener::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress && watched->isWindowType()) {
        const auto &key = static_cast<const QKeyEvent &>(*event);
        if (key.key() == Qt::Key_Print && !key.isAutoRepeat())
            m_center.post(ApplicationUserDidTakeScreenshotNotification);
    }
    return false;
}

void ScreenshotListener::folderChanged(const QString &folder)
{
    watch(); // the folder for screenshots may be made with the first of them
    const QSet<QString> now = screenshotsIn(folder);
    const QSet<QString> before = std::exchange(m_known[folder], now);
    // A picture of another application is none of the tester's reports.
    const bool isActive = QGuiApplication::applicationState() == Qt::ApplicationActive;
    if (isActive && !(now - before).isEmpty())
        m_center.post(ApplicationUserDidTakeScreenshotNotification);
}

} // namespace wexel
