#include "Desktop.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>

#include <sys/prctl.h>
#include <xcb/xcb.h>

#include <gtest/gtest.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcessEnvironment>

#include "Support/Wait.h"

namespace wexel {

namespace {

struct Free {
    void operator()(void *reply) const { std::free(reply); }
};

template <typename Reply>
std::unique_ptr<Reply, Free> owned(Reply *reply)
{
    return std::unique_ptr<Reply, Free>(reply);
}

QString at(const QPoint &place)
{
    return QStringLiteral("mousemove %1 %2 ").arg(place.x()).arg(place.y());
}

QByteArray contentsOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Whether a thread of the process has something to compute. One that a busy machine keeps waiting counts, too.
bool isBusy(qint64 process)
{
    const QString tasks = QStringLiteral("/proc/%1/task/").arg(process);
    const QStringList threads = QDir(tasks).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    return std::any_of(threads.begin(), threads.end(), [&tasks](const QString &thread) {
        const QByteArray stat = contentsOf(tasks + thread + QStringLiteral("/stat"));
        const char state = stat.isEmpty() ? 'X' : stat.at(stat.lastIndexOf(')') + 2); // after the name
        return state == 'R' || state == 'D';
    });
}

/// The processes that this one started.
QList<qint64> children()
{
    QList<qint64> result;
    const QString tasks = QStringLiteral("/proc/self/task/");
    for (const QString &thread : QDir(tasks).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QByteArray numbers = contentsOf(tasks + thread + QStringLiteral("/children"));
        for (const QByteArray &number : numbers.simplified().split(' '))
            result.append(number.toLongLong());
    }
    return result;
}

void end(QProcess &process)
{
    process.kill();
    process.waitForFinished();
}

} // namespace

Desktop::Desktop(bool isComposited) : m_connection(nullptr, xcb_disconnect)
{
    const QString screen = QStringLiteral("%1x%2x24").arg(size.width()).arg(size.height());
    start(m_server, QStringLiteral("Xvfb"),
          {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"), QStringLiteral("0"),
           screen, QStringLiteral("-nolisten"), QStringLiteral("tcp")});
    EXPECT_TRUE(spinUntil([this] { return m_server.canReadLine(); })) << "Xvfb does not start";
    m_display = u':' + QString::fromUtf8(m_server.readLine()).trimmed();
    m_connection.reset(xcb_connect(m_display.toUtf8().constData(), nullptr));
    m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())).data->root;
    start(m_windowManager, QStringLiteral("openbox"),
          {QStringLiteral("--config-file"), windowManagerSettings()});
    EXPECT_TRUE(spinUntil([this] { return !numbers(m_root, "_NET_SUPPORTING_WM_CHECK").isEmpty(); }));
    // The first key makes the server change the keyboard, and for a moment the window manager has no keys.
    xdotool(QStringLiteral("key shift"));
    if (!isComposited)
        return;
    start(m_compositor, QStringLiteral("picom"),
          {QStringLiteral("--backend"), QStringLiteral("xrender"), QStringLiteral("--config"),
           QStringLiteral("/dev/null")});
    EXPECT_TRUE(spinUntil([this] { return hasCompositor(); })) << "picom does not start";
}

Desktop::~Desktop()
{
    end(m_compositor);
    end(m_windowManager);
    m_connection.reset();
    end(m_server);
}

// As it is installed, with a key to maximise, and without the Print key, which is left to the application here.
QString Desktop::windowManagerSettings() const
{
    QFile installed(QStringLiteral("/etc/xdg/openbox/rc.xml"));
    EXPECT_TRUE(installed.open(QIODevice::ReadOnly));
    QFile settings(m_folder.filePath(QStringLiteral("rc.xml")));
    EXPECT_TRUE(settings.open(QIODevice::WriteOnly));
    settings.write(
        installed.readAll()
            .replace("\"Print\"", "\"W-Print\"")
            .replace("<keyboard>",
                     "<keyboard><keybind key=\"W-m\"><action name=\"ToggleMaximize\"/></keybind>"));
    return settings.fileName();
}

void Desktop::start(QProcess &process, const QString &program, const QStringList &arguments) const
{
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), m_display);
    process.setProcessEnvironment(environment);
    process.setStandardErrorFile(QProcess::nullDevice());
    process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForStarted()) << qPrintable(process.errorString());
}

quint32 Desktop::atom(const char *name) const
{
    const auto length = static_cast<uint16_t>(qstrlen(name));
    const auto reply = owned(xcb_intern_atom_reply(
        m_connection.get(), xcb_intern_atom(m_connection.get(), 0, length, name), nullptr));
    return reply ? reply->atom : quint32(XCB_ATOM_NONE);
}

QByteArray Desktop::property(quint32 window, const char *name) const
{
    constexpr uint32_t maximumWords = 1024;
    const auto reply
        = owned(xcb_get_property_reply(m_connection.get(),
                                       xcb_get_property(m_connection.get(), 0, window, atom(name),
                                                        XCB_GET_PROPERTY_TYPE_ANY, 0, maximumWords),
                                       nullptr));
    if (!reply)
        return {}; // the window has gone
    return {static_cast<const char *>(xcb_get_property_value(reply.get())),
            xcb_get_property_value_length(reply.get())};
}

QList<quint32> Desktop::numbers(quint32 window, const char *name) const
{
    const QByteArray bytes = property(window, name);
    QList<quint32> result(bytes.size() / qsizetype(sizeof(quint32)));
    std::copy_n(bytes.constData(), result.size() * qsizetype(sizeof(quint32)),
                reinterpret_cast<char *>(result.data()));
    return result;
}

bool Desktop::hasCompositor() const
{
    const auto reply = owned(xcb_get_selection_owner_reply(
        m_connection.get(), xcb_get_selection_owner(m_connection.get(), atom("_NET_WM_CM_S0")), nullptr));
    return reply && reply->owner != XCB_NONE;
}

QList<Desktop::Window> Desktop::windows() const
{
    QList<Window> result;
    xcb_connection_t *connection = m_connection.get();
    for (const quint32 id : numbers(m_root, "_NET_CLIENT_LIST_STACKING")) {
        const auto place = owned(xcb_translate_coordinates_reply(
            connection, xcb_translate_coordinates(connection, id, m_root, 0, 0), nullptr));
        const auto geometry
            = owned(xcb_get_geometry_reply(connection, xcb_get_geometry(connection, id), nullptr));
        if (place && geometry)
            result.append({id, numbers(id, "WM_TRANSIENT_FOR").value(0),
                           QString::fromUtf8(property(id, "_NET_WM_NAME")),
                           QRect(place->dst_x, place->dst_y, geometry->width, geometry->height)});
    }
    return result;
}

quint32 Desktop::activeWindow() const
{
    return numbers(m_root, "_NET_ACTIVE_WINDOW").value(0);
}

QImage Desktop::picture(const QRect &area) const
{
    const QRect visible = area & QRect(QPoint(), size);
    xcb_connection_t *connection = m_connection.get();
    const auto reply = owned(xcb_get_image_reply(
        connection,
        xcb_get_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, m_root, int16_t(visible.x()),
                      int16_t(visible.y()), uint16_t(visible.width()), uint16_t(visible.height()), ~0U),
        nullptr));
    if (!reply)
        return {};
    return QImage(xcb_get_image_data(reply.get()), visible.width(), visible.height(), QImage::Format_RGB32)
        .copy();
}

// The server has done what it was asked for when it sends a picture.
bool Desktop::isAnyBusy() const
{
    const QList<qint64> programs = children();
    return std::any_of(programs.begin(), programs.end(),
                       [this](qint64 program) { return program != m_server.processId() && isBusy(program); });
}

void Desktop::settle(const QRect &area) const
{
    constexpr int quietMilliseconds = 200;
    QElapsedTimer quiet;
    QImage last;
    EXPECT_TRUE(spinUntil([&] {
        const QImage now = picture(area);
        if (now != last || !quiet.isValid() || isAnyBusy())
            quiet.start();
        last = now;
        return quiet.hasExpired(quietMilliseconds);
    }));
}

void Desktop::xdotool(const QString &commands) const
{
    QProcess process;
    start(process, QStringLiteral("xdotool"), commands.split(u' ', Qt::SkipEmptyParts));
    EXPECT_TRUE(process.waitForFinished() && process.exitCode() == 0) << qPrintable(commands);
}

void Desktop::click(const QPoint &place) const
{
    xdotool(at(place) + QStringLiteral("click 1"));
}

void Desktop::drag(const QList<QPoint> &places) const
{
    constexpr int steps = 8;
    const QString pace = QStringLiteral("sleep 0.01 ");
    QString commands = at(places.first()) + QStringLiteral("mousedown 1 ");
    for (qsizetype i = 1; i < places.size(); ++i) {
        const QPointF way = places[i] - places[i - 1];
        for (int step = 1; step <= steps; ++step)
            commands += at((places[i - 1] + way * step / steps).toPoint()) + pace;
    }
    xdotool(commands + QStringLiteral("mouseup 1"));
}

} // namespace wexel
