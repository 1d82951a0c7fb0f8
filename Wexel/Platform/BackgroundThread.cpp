#include "Platform/BackgroundThread.h"

#include <vector>

#include <QThread>
#include <QTimer>

#include "Platform/ApplicationEnd.h"
#include "Platform/BlockReceiver.h"

namespace wexel {

struct BackgroundThread::State {
    QThread thread;
    BlockReceiver receiver; // lives in `thread`
    std::vector<std::function<void()>> atEnd; // touched on `thread` only
};

BackgroundThread &BackgroundThread::shared()
{
    static auto *instance = new BackgroundThread; // never destroyed, see ApplicationEnd
    return *instance;
}

BackgroundThread::BackgroundThread() : m_state(std::make_shared<State>())
{
    m_state->thread.setObjectName(QStringLiteral("wexel-session"));
    m_state->receiver.moveToThread(&m_state->thread);
    m_state->thread.start();
    ApplicationEnd::perform(ApplicationEnd::Phase::Network, [state = m_state] {
        state->receiver.post([state] {
            for (const auto &block : state->atEnd)
                block();
            state->receiver.close();
            state->thread.quit();
        });
        state->thread.wait();
    });
}

QObject *BackgroundThread::context()
{
    return &m_state->receiver;
}

void BackgroundThread::adopt(QObject &object)
{
    object.moveToThread(&m_state->thread);
}

void BackgroundThread::perform(std::function<void()> block)
{
    m_state->receiver.post(std::move(block));
}

void BackgroundThread::performLater(std::chrono::milliseconds delay, std::function<void()> block)
{
    perform([state = m_state, delay, block = std::move(block)] {
        QTimer::singleShot(delay, &state->receiver, block);
    });
}

void BackgroundThread::performEvery(std::chrono::milliseconds interval, std::function<void()> block)
{
    perform([state = m_state, interval, block = std::move(block)] {
        auto *timer = new QTimer(&state->receiver);
        timer->setTimerType(Qt::PreciseTimer);
        timer->callOnTimeout(block);
        timer->start(interval);
        block();
    });
}

void BackgroundThread::performAtEnd(std::function<void()> block)
{
    perform([state = m_state, block = std::move(block)] { state->atEnd.push_back(block); });
}

} // namespace wexel
