#include "Presentation/Invocation/ScreenshotListener.h"

#include <utility>

#include <QDir>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QStandardPaths>

#include "Platform/NotificationCenter.h"

namespace wexel {

namespace {

QSet<QString> picturesIn(const QString &folder)
{
    const QStringList names = QDir(folder).entryList({QStringLiteral("*.png"), QStringLiteral("*.jpg"),
                                                      QStringLiteral("*.jpeg"), QStringLiteral("*.webp")},
                                                     QDir::Files);
    return {names.begin(), names.end()};
}

} // namespace

ScreenshotListener::ScreenshotListener(QObject *application, NotificationCenter &center,
                                       const QStringList &folders)
    : QObject(application)
    , m_center(center)
{
    application->installEventFilter(this);
    for (const QString &folder : folders) {
        if (m_watcher.addPath(folder))
            m_pictures.insert(folder, picturesIn(folder));
    }
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &ScreenshotListener::folderChanged);
}

QStringList ScreenshotListener::screenshotFolders()
{
    const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    QStringList folders{pictures, pictures + QStringLiteral("/Screenshots")};
    folders.removeIf([](const QString &folder) { return !QFileInfo(folder).isDir(); });
    return folders;
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
    const QSet<QString> now = picturesIn(folder);
    const QSet<QString> before = std::exchange(m_pictures[folder], now);
    // A picture of another application is none of the tester's reports.
    const bool isActive = QGuiApplication::applicationState() == Qt::ApplicationActive;
    if (isActive && !(now - before).isEmpty())
        m_center.post(ApplicationUserDidTakeScreenshotNotification);
}

} // namespace wexel
