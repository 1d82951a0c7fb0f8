#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstdio>

#include <QString>
#include <QTemporaryDir>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

/// The socket of a bus that takes one client and never says a word.
class SilentBus
{
public:
    SilentBus()
    {
        sockaddr_un name{};
        name.sun_family = AF_UNIX;
        std::snprintf(name.sun_path, sizeof name.sun_path, "%s", qPrintable(path()));
        EXPECT_EQ(bind(m_listener, reinterpret_cast<sockaddr *>(&name), sizeof name), 0);
        EXPECT_EQ(listen(m_listener, 5), 0);
    }
    ~SilentBus()
    {
        close(m_listener);
        close(m_client);
    }
    SilentBus(const SilentBus &) = delete;
    SilentBus &operator=(const SilentBus &) = delete;

    [[nodiscard]] QString address() const { return QStringLiteral("unix:path=") + path(); }
    /// Takes the client if one is there.
    bool hasClient()
    {
        if (m_client < 0)
            m_client = accept4(m_listener, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
        return m_client >= 0;
    }
    /// True until the client gives up.
    [[nodiscard]] bool isWaitedFor() const
    {
        std::array<char, 1024> words{};
        ssize_t count = 1;
        while (count > 0)
            count = recv(m_client, words.data(), words.size(), MSG_DONTWAIT);
        return count < 0 && errno == EAGAIN;
    }

private:
    [[nodiscard]] QString path() const { return m_folder.filePath(QStringLiteral("bus")); }

    QTemporaryDir m_folder;
    int m_listener = socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    int m_client = -1;
};
