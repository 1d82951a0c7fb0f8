#pragma once

#include <deque>
#include <mutex>

#include <QTemporaryDir>

#include "Platform/UserDefaults.h"

/// Time as the test decides it: gathered blocks run when it says so.
class ManualLater
{
public:
    wexel::RunLater runLater()
    {
        return [this](std::chrono::milliseconds delay, std::function<void()> block) {
            const std::scoped_lock lock(m_mutex);
            m_longestDelay = std::max(m_longestDelay, delay);
            m_blocks.push_back(std::move(block));
        };
    }
    void runPending()
    {
        std::deque<std::function<void()>> blocks;
        {
            const std::scoped_lock lock(m_mutex);
            blocks.swap(m_blocks);
        }
        for (const auto &block : blocks)
            block();
    }
    [[nodiscard]] size_t pending() const
    {
        const std::scoped_lock lock(m_mutex);
        return m_blocks.size();
    }
    [[nodiscard]] std::chrono::milliseconds longestDelay() const { return m_longestDelay; }

private:
    mutable std::mutex m_mutex;
    std::deque<std::function<void()>> m_blocks;
    std::chrono::milliseconds m_longestDelay{0};
};

/// A store in a folder of its own.
struct StoreUnderTest {
    QTemporaryDir folder;
    ManualLater later;
    QString path = folder.filePath(QStringLiteral("state/defaults.sqlite"));
    std::shared_ptr<wexel::UserDefaults> defaults = open();

    std::shared_ptr<wexel::UserDefaults> open() { return wexel::makeUserDefaults(path, later.runLater()); }
    void relaunch()
    {
        defaults.reset();
        defaults = open();
    }
};
