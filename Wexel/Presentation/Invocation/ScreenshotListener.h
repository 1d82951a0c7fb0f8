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
/// among the user's, in the folder "Screenshots" or named so. Lives as long as the application object. Main thread only.
class ScreenshotListener final : public QObject
{
public:
    /// \param pictures the user's folder for pictures
    ScreenshotListener(QObject *application, NotificationCenter &center, QString pictures);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void watch();
    void folderChanged(const QString &folder);

    NotificationCenter &m_center;
    QFileSystemWatcher m_watcher;
    const QString m_pictures;
    QHash<QString, QSet<QString>> m_known; ///< screenshots of each watched folder
};

} // namespace wexel
