#pragma once

#include <memory>

#include <QImage>
#include <QList>
#include <QProcess>
#include <QRect>
#include <QString>
#include <QTemporaryDir>

struct xcb_connection_t;

namespace wexel {

/// A screen of its own with a window manager and, if wanted, a compositor, and a hand on its mouse and keyboard. All of it
/// ends with the object, or with the test's process.
class Desktop
{
public:
    static constexpr QSize size{1280, 1000};

    struct Window {
        quint32 id;
        quint32 owner; ///< the window that it was opened from; 0 without one
        QString title;
        QRect geometry; ///< of the client area, on the screen

        bool operator==(const Window &other) const { return id == other.id; }
    };

    explicit Desktop(bool isComposited);
    ~Desktop();
    Desktop(const Desktop &) = delete;
    Desktop &operator=(const Desktop &) = delete;

    /// The DISPLAY that the programs on it are to use.
    [[nodiscard]] const QString &display() const { return m_display; }
    /// The windows that the window manager knows, minimised ones too, back to front.
    [[nodiscard]] QList<Window> windows() const;
    [[nodiscard]] quint32 activeWindow() const;
    /// What the screen shows there.
    [[nodiscard]] QImage picture(const QRect &area) const;
    /// Waits until the area no longer changes, and no program has work left that could change it.
    void settle(const QRect &area) const;

    /// Runs xdotool with those words.
    void xdotool(const QString &commands) const;
    void click(const QPoint &place) const;
    /// Does that to the active window.
    void toggleMaximized() const { xdotool(QStringLiteral("key super+m")); }
    /// A drag along the places with the left button, at a hand's pace: a program must be able to see it on its way.
    void drag(const QList<QPoint> &places) const;

private:
    [[nodiscard]] QString windowManagerSettings() const;
    void start(QProcess &process, const QString &program, const QStringList &arguments = {}) const;
    /// Whether a program that the test started has something to compute.
    [[nodiscard]] bool isAnyBusy() const;
    [[nodiscard]] quint32 atom(const char *name) const;
    [[nodiscard]] QByteArray property(quint32 window, const char *name) const;
    [[nodiscard]] QList<quint32> numbers(quint32 window, const char *name) const;
    [[nodiscard]] bool hasCompositor() const;

    QTemporaryDir m_folder;
    QString m_display;
    QProcess m_server;
    std::unique_ptr<xcb_connection_t, void (*)(xcb_connection_t *)> m_connection;
    quint32 m_root = 0;
    QProcess m_windowManager;
    QProcess m_compositor;
};

} // namespace wexel
