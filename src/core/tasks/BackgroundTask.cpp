#include "core/tasks/BackgroundTask.h"

#include <QCoreApplication>
#include <QThreadPool>

#include <limits>
#include <utility>

namespace clipwren {
namespace {

// One pool for all, without a limit: a task that waits for its tool must not keep another from
// starting. Never destroyed: where exit() is called while work runs, the work still needs it.
QThreadPool &pool()
{
    static QThreadPool &threads = *[] {
        auto *pool = new QThreadPool;
        pool->setMaxThreadCount(std::numeric_limits<int>::max());
        return pool;
    }();
    return threads;
}

/// Stops all work there is and will be.
std::stop_source &everything()
{
    static std::stop_source &source = *new std::stop_source;
    return source;
}

void runOnUserInterfaceThread(std::function<void()> function)
{
    if (QCoreApplication *application = QCoreApplication::instance())
        QMetaObject::invokeMethod(application, std::move(function), Qt::QueuedConnection);
}

} // namespace

BackgroundTask::BackgroundTask(std::shared_ptr<State> state) : m_state(std::move(state))
{
}

BackgroundTask &BackgroundTask::operator=(BackgroundTask &&other) noexcept
{
    if (this != &other) {
        drop();
        m_state = std::move(other.m_state);
    }
    return *this;
}

BackgroundTask::~BackgroundTask()
{
    drop();
}

void BackgroundTask::drop()
{
    if (!m_state)
        return;
    m_state->dropped = true;
    m_state->stop.request_stop();
    m_state.reset();
}

void BackgroundTask::cancel()
{
    if (m_state)
        m_state->stop.request_stop();
}

bool BackgroundTask::isRunning() const
{
    return m_state && !m_state->finished;
}

void BackgroundTask::stopAll()
{
    everything().request_stop();
}

bool BackgroundTask::waitForAll(std::chrono::milliseconds timeout)
{
    return pool().waitForDone(static_cast<int>(timeout.count()));
}

BackgroundTask
BackgroundTask::launch(std::function<Finish(const std::stop_token &, const Post &)> work)
{
    auto state = std::make_shared<State>();
    pool().start([state, work = std::move(work)] {
        const std::stop_callback ending(everything().get_token(),
                                        [&state] { state->stop.request_stop(); });
        const Post post = [state](std::function<void()> function) {
            runOnUserInterfaceThread([state, function = std::move(function)] {
                if (!state->dropped)
                    function();
            });
        };
        runOnUserInterfaceThread([state, finish = work(state->stop.get_token(), post)] {
            state->finished = true;
            if (!state->dropped)
                finish();
        });
    });
    return BackgroundTask(std::move(state));
}

} // namespace clipwren
