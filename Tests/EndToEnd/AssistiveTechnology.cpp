#include "AssistiveTechnology.h"

#include <algorithm>

#include <gtest/gtest.h>

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>

namespace wexel {

namespace {

const QString root = QStringLiteral("/org/a11y/atspi/accessible/root");
const QString connectionName = QStringLiteral("assistive technology");

void collectShown(const Accessible &from, QList<Accessible> &result)
{
    if (from.is(Accessible::State::Showing) && from.is(Accessible::State::Visible))
        result.append(from);
    for (const Accessible &child : from.children())
        collectShown(child, result);
}

} // namespace

QVariantList Accessible::call(const char *interface, const char *method, const QVariantList &arguments) const
{
    auto message = QDBusMessage::createMethodCall(m_service, m_path,
                                                  QLatin1String("org.a11y.atspi.") + QLatin1String(interface),
                                                  QLatin1String(method));
    message.setArguments(arguments);
    return m_bus.call(message).arguments(); // an error's text, if it has gone meanwhile
}

QVariant Accessible::property(const char *interface, const char *name) const
{
    auto message = QDBusMessage::createMethodCall(
        m_service, m_path, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    message.setArguments({QLatin1String("org.a11y.atspi.") + QLatin1String(interface), QLatin1String(name)});
    return m_bus.call(message).arguments().value(0).value<QDBusVariant>().variant();
}

QString Accessible::role() const
{
    return call("Accessible", "GetRoleName").value(0).toString();
}

bool Accessible::is(const char *role, const QString &name) const
{
    return this->name().startsWith(name) && this->role() == QLatin1String(role);
}

bool Accessible::is(State state) const
{
    constexpr int wordBits = 32;
    const auto words = qdbus_cast<QList<uint>>(call("Accessible", "GetState").value(0));
    return (words.value(int(state) / wordBits) >> (int(state) % wordBits) & 1) != 0;
}

QList<Accessible> Accessible::children() const
{
    const auto answer = call("Accessible", "GetChildren").value(0);
    QList<Accessible> result;
    if (!answer.canConvert<QDBusArgument>())
        return result;
    const auto list = answer.value<QDBusArgument>(); // one that is not const would be written to
    for (list.beginArray(); !list.atEnd();) {
        QString service;
        QDBusObjectPath path;
        list.beginStructure();
        list >> service >> path;
        list.endStructure();
        result.append({m_bus, service, path.path()});
    }
    return result;
}

bool Accessible::press() const
{
    const int count = property("Action", "NActions").toInt();
    for (int i = 0; i < count; ++i) {
        if (call("Action", "GetName", {i}).value(0) == QStringLiteral("Press"))
            return call("Action", "DoAction", {i}).value(0).toBool();
    }
    return false;
}

QString Accessible::text() const
{
    return call("Text", "GetText", {0, -1}).value(0).toString();
}

bool Accessible::setText(const QString &text) const
{
    return call("EditableText", "SetTextContents", {text}).value(0).toBool();
}

AssistiveTechnology::AssistiveTechnology()
{
    const QString here = m_folder.path();
    m_daemon.emplace(
        QStringLiteral("env"),
        QStringList{QStringLiteral("XDG_RUNTIME_DIR=") + here, QStringLiteral("GSETTINGS_BACKEND=memory"),
                    QStringLiteral("dbus-daemon"), QStringLiteral("--session"), QStringLiteral("--nofork"),
                    QStringLiteral("--print-address"), QStringLiteral("--address=unix:dir=") + here});
    m_sessionBus = QString::fromUtf8(m_daemon->readLine());
    EXPECT_FALSE(m_sessionBus.isEmpty()) << "needs dbus-daemon";
    // The session bus starts the accessibility bus when it is first asked for.
    const auto answer = QDBusConnection::connectToBus(m_sessionBus, connectionName)
                            .call(QDBusMessage::createMethodCall(
                                QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
                                QStringLiteral("org.a11y.Bus"), QStringLiteral("GetAddress")));
    QDBusConnection::disconnectFromBus(connectionName);
    m_accessibilityBus = answer.arguments().value(0).toString();
    EXPECT_EQ(answer.type(), QDBusMessage::ReplyMessage)
        << "needs at-spi2-core: " << qPrintable(answer.errorMessage());
    QDBusConnection::connectToBus(m_accessibilityBus, connectionName);
}

AssistiveTechnology::~AssistiveTechnology()
{
    QDBusConnection::disconnectFromBus(connectionName);
}

QList<Accessible> AssistiveTechnology::windows()
{
    const Accessible desktop(QDBusConnection(connectionName), QStringLiteral("org.a11y.atspi.Registry"),
                             root);
    QList<Accessible> windows;
    for (const Accessible &program : desktop.children())
        windows += program.children();
    return windows;
}

QList<Accessible> AssistiveTechnology::shownBeside(const QString &heading) const
{
    for (const Accessible &window : windows()) {
        QList<Accessible> shown;
        collectShown(window, shown);
        if (std::any_of(shown.begin(), shown.end(),
                        [&](const Accessible &one) { return one.is("heading", heading); }))
            return shown;
    }
    return {};
}

std::optional<Accessible> AssistiveTechnology::window(const char *role, const QString &name) const
{
    const auto all = windows();
    const auto found = std::find_if(all.begin(), all.end(), [&](const Accessible &one) {
        return one.is(role, name) && one.is(Accessible::State::Showing);
    });
    return found != all.end() ? std::optional(*found) : std::nullopt;
}

} // namespace wexel
