#pragma once

#include "Platform/Scheduler.h"

namespace wexel {

class BlockReceiver;

/// The scheduler on Qt's main-thread event loop. Timers longer than QTimer can count are chained.
class MainScheduler final : public Scheduler
{
public:
    static MainScheduler &shared();

    void perform(std::function<void()> block) override;
    void performAndWait(const std::function<void()> &block) override;
    std::shared_ptr<Timer> schedule(std::chrono::milliseconds delay, std::function<void()> block) override;

private:
    MainScheduler();
    BlockReceiver *m_receiver; // lives in the main thread, never destroyed
};

} // namespace wexel
