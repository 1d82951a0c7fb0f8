#pragma once

#include <optional>

#include <QDBusConnection>
#include <QList>
#include <QString>
#include <QTemporaryDir>
#include <QVariant>

#include "Support/ChildProcess.h"

namespace wexel {

/// Something that a program shows to assistive technology. What it has or does is asked from the program each time.
class Accessible
{
public:
    /// Bits of AT-SPI's set of states.
    enum class State { Checked = 4, Focusable = 11, Focused = 12, Showing = 25, Visible = 30 };

    Accessible(QDBusConnection bus, QString service, QString path)
        : m_bus(std::move(bus))
        , m_service(std::move(service))
        , m_path(std::move(path))
    {
    }

    [[nodiscard]] QString role() const;
    [[nodiscard]] QString name() const { return property("Accessible", "Name").toString(); }
    /// True for what has that role, and a name that begins so.
    [[nodiscard]] bool is(const char *role, const QString &name) const;
    [[nodiscard]] bool is(State state) const;
    [[nodiscard]] QList<Accessible> children() const;
    /// Does what pressing it does. False when it has no such action.
    [[nodiscard]] bool press() const;
    /// Of an editable text.
    [[nodiscard]] QString text() const;
    [[nodiscard]] bool setText(const QString &text) const;

private:
    [[nodiscard]] QVariantList call(const char *interface, const char *method,
                                    const QVariantList &arguments = {}) const;
    [[nodiscard]] QVariant property(const char *interface, const char *name) const;

    QDBusConnection m_bus;
    QString m_service;
    QString m_path;
};

/// A session of its own with the accessibility bus, and one who uses the programs in it by what they tell over that bus.
class AssistiveTechnology
{
public:
    AssistiveTechnology();
    ~AssistiveTechnology();
    AssistiveTechnology(const AssistiveTechnology &) = delete;
    AssistiveTechnology &operator=(const AssistiveTechnology &) = delete;

    /// The DBUS_SESSION_BUS_ADDRESS that the programs are to use.
    [[nodiscard]] const QString &sessionBus() const { return m_sessionBus; }
    /// All that is shown now in the window with that heading, outer before inner; empty while there is none.
    [[nodiscard]] QList<Accessible> shownBeside(const QString &heading) const;
    /// The window that is nothing but that.
    [[nodiscard]] std::optional<Accessible> window(const char *role, const QString &name) const;

private:
    [[nodiscard]] static QList<Accessible> windows();

    QTemporaryDir m_folder;
    std::optional<ChildProcess> m_daemon;
    QString m_sessionBus;
    QString m_accessibilityBus;
};

} // namespace wexel
