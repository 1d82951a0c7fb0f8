#include "Platform/MainScheduler.h"

#include <algorithm>
#include <atomic>
#include <future>
#include <limits>
#include <utility>

#include <QCoreApplication>
#include <QThread>
#include <QTimer>

#include "Platform/ApplicationEnd.h"
#include "Platform/BlockReceiver.h"

namespace wexel {

namespace {

class MainTimer final : public Timer, public std::enable_shared_from_this<MainTimer>
{
public:
    explicit MainTimer(std::function<void()> block) : m_block(std::move(block)) { }

    void invalidate() override { m_valid = false; }

    void start(QObject *context, std::chrono::milliseconds remaining)
    {
        const auto step = std::min(remaining, std::chrono::milliseconds(std::numeric_limits<int>::max()));
        QTimer::singleShot(step, context, [self = shared_from_this(), context, rest = remaining - step] {
            if (!self->m_valid)
                return;
            if (rest.count() > 0)
                return self->start(context, rest);
            self->m_valid = false;
            self->m_block();
        });
    }

private:
    std::function<void()> m_block;
    std::atomic<bool> m_valid = true;
};

/// Ends the wait of performAndWait when its block has run, or was dropped unrun.
class Completion
{
public:
    Completion() = default;
    Completion(const Completion &) = delete;
    Completion &operator=(const Completion &) = delete;
    ~Completion() { finish(); }

    std::future<void> future() { return m_promise.get_future(); }
    void finish()
    {
        if (!std::exchange(m_finished, true))
            m_promise.set_value();
    }

private:
    std::promise<void> m_promise;
    bool m_finished = false;
};

} // namespace

MainScheduler &MainScheduler::shared()
{
    static auto *instance = new MainScheduler; // never destroyed, see ApplicationEnd
    return *instance;
}

MainScheduler::MainScheduler() : m_receiver(new BlockReceiver)
{
    m_receiver->moveToThread(QCoreApplication::instance()->thread());
    ApplicationEnd::perform(ApplicationEnd::Phase::MainThread,
                            [receiver = m_receiver] { receiver->close(); });
}

void MainScheduler::perform(std::function<void()> block)
{
    m_receiver->post(std::move(block));
}

void MainScheduler::performAndWait(const std::function<void()> &block)
{
    if (QThread::currentThread() == m_receiver->thread())
        return block();
    auto completion = std::make_shared<Completion>();
    auto done = completion->future();
    perform([completion = std::move(completion), &block] {
        block();
        completion->finish();
    });
    done.wait();
}

std::shared_ptr<Timer> MainScheduler::schedule(std::chrono::milliseconds delay, std::function<void()> block)
{
    auto timer = std::make_shared<MainTimer>(std::move(block));
    perform([timer, delay, receiver = m_receiver] { timer->start(receiver, delay); });
    return timer;
}

} // namespace wexel
