#pragma once

#include <QFileSystemWatcher>
#include <QObject>
#include <QSet>
#include <QString>

namespace wexel {

class NotificationCenter;

/// Posted on the main thread when the user took a screenshot while the application was the active one.
inline const QString ApplicationUserDidTakeScreenshotNotification
    = QStringLiteral("ApplicationUserDidTakeScreenshotNotification");

/// Notices that the user took a screenshot: the Print key, where the system leaves it to the application, or a new picture
/// in one of the folders that screenshots go to. Lives as long as the application object. Main thread only.
class ScreenshotListener final : public QObject
{
public:
    /// \param folders only those that exist are watched
    ScreenshotListener(QObject *application, NotificationCenter &center, const QStringList &folders);

    /// Where desktops put screenshots: "Screenshots" among the user's pictures, and the pictures themselves.
    [[nodiscard]] static QStringList screenshotFolders();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void folderChanged(const QString &folder);

    NotificationCenter &m_center;
    QFileSystemWatcher m_watcher;
    QHash<QString, QSet<QString>> m_pictures; ///< known ones of each folder
};

} // namespace wexel
