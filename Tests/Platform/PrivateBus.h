#pragma once

#include <gtest/gtest.h>

#include <atomic>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>

#include "Platform/Linux/BusService.h"
#include "Support/ChildProcess.h"

/// What a service answers: "PATH METHOD ARGUMENT..." or "PATH PROPERTY" to the values. Other calls are errors; an
/// answer of no values at all stands for a service that hangs.
using BusAnswers = std::map<QString, QVariantList>;

/// A service's objects.
class BusObjects final : public QDBusVirtualObject
{
public:
    BusObjects(BusAnswers answers, std::mutex &gate, std::atomic<int> &timesCalled)
        : m_gate(gate)
        , m_timesCalled(timesCalled)
    {
        const std::lock_guard lock(m_gate);
        m_answers = std::move(answers);
    }
    QString introspect(const QString & /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        ++m_timesCalled;
        const std::lock_guard lock(m_gate);
        const bool isProperty = message.member() == QLatin1String("Get");
        QString question = message.path();
        if (!isProperty)
            question += u' ' + message.member();
        for (const QVariant &argument : isProperty ? message.arguments().mid(1) : message.arguments())
            question += u' ' + argument.toString();
        const auto answer = m_answers.find(question);
        if (answer == m_answers.end())
            return false;
        QVariantList values = answer->second;
        if (values.isEmpty())
            return true;
        if (isProperty)
            values = {QVariant::fromValue(QDBusVariant(values.first()))};
        connection.send(message.createReply(values));
        return true;
    }

private:
    std::mutex &m_gate; // guards `m_answers`
    std::atomic<int> &m_timesCalled;
    BusAnswers m_answers;
};

/// A dbus-daemon of the test's own with services of the test's own, which answer on a thread of their own.
class PrivateBus
{
public:
    PrivateBus()
    {
        const QString configuration = m_folder.filePath(QStringLiteral("bus.conf"));
        QFile file(configuration);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("<busconfig><type>session</type><listen>unix:tmpdir=" + m_folder.path().toUtf8()
                   + "</listen><servicedir>" + m_folder.path().toUtf8()
                   + "</servicedir><policy context=\"default\"><allow send_destination=\"*\"/><allow "
                     "eavesdrop=\"true\"/><allow own=\"*\"/>"
                     "</policy></busconfig>");
        file.close();
        m_daemon.emplace(QStringLiteral("dbus-daemon"),
                         QStringList{QStringLiteral("--nofork"), QStringLiteral("--print-address"),
                                     QStringLiteral("--config-file=") + configuration});
        m_address = QString::fromUtf8(m_daemon->readLine());
        EXPECT_FALSE(m_address.isEmpty()) << "needs dbus-daemon";
        m_thread.start();
    }
    ~PrivateBus()
    {
        m_thread.quit();
        m_thread.wait();
    }
    PrivateBus(const PrivateBus &) = delete;
    PrivateBus &operator=(const PrivateBus &) = delete;

    void serve(const QString &name, BusAnswers answers)
    {
        m_objects.push_back(std::make_unique<BusObjects>(std::move(answers), gate, timesCalled));
        QDBusConnection connection = connect();
        ASSERT_TRUE(connection.registerVirtualObject(QStringLiteral("/"), m_objects.back().get(),
                                                     QDBusConnection::SubPath));
        m_objects.back()->moveToThread(&m_thread);
        ASSERT_TRUE(connection.registerService(name));
    }
    /// A service that the bus could start but that does not run.
    void installActivatable(const QString &name)
    {
        QFile file(m_folder.filePath(name + QStringLiteral(".service")));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("[D-BUS Service]\nName=" + name.toUtf8() + "\nExec=/bin/false\n");
        file.close();
        const QDBusMessage reload = connect().call(QDBusMessage::createMethodCall(
            QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
            QStringLiteral("org.freedesktop.DBus"), QStringLiteral("ReloadConfig")));
        ASSERT_EQ(reload.type(), QDBusMessage::ReplyMessage);
    }
    wexel::BusProvider provider()
    {
        return [this, connection = connect()] {
            ++timesAsked;
            return connection;
        };
    }

    [[nodiscard]] const QString &address() const { return m_address; }

    std::atomic<int> timesAsked = 0; ///< for a connection
    std::atomic<int> timesCalled = 0; ///< the services were
    std::mutex gate; ///< the services answer only while nobody else holds it

private:
    QDBusConnection connect()
    {
        static int number = 0;
        return QDBusConnection::connectToBus(m_address, QStringLiteral("private-%1").arg(++number));
    }

    QTemporaryDir m_folder;
    std::optional<wexel::ChildProcess> m_daemon;
    QString m_address;
    QThread m_thread;
    std::vector<std::unique_ptr<BusObjects>> m_objects;
};
