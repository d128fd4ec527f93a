#include "core/tasks/BackgroundTask.h"

#include "core/process/Mutex.h"

#include <QCoreApplication>
#include <QThreadPool>

#include <deque>
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

/// What one task has posted and what has not been run yet, in order.
class Waiting {
public:
    /// False when the function took the place of the one before it, so that none is added.
    bool append(std::function<void()> function)
    {
        // More than the user-interface thread is behind by: only the newest of them tells
        // something.
        constexpr std::size_t most = 256;
        return m_functions.apply([&](std::deque<std::function<void()>> &functions) {
            if (functions.size() < most) {
                functions.push_back(std::move(function));
                return true;
            }
            functions.back() = std::move(function);
            return false;
        });
    }

    std::function<void()> takeFirst()
    {
        return m_functions.apply([](std::deque<std::function<void()>> &functions) {
            auto first = std::move(functions.front());
            functions.pop_front();
            return first;
        });
    }

private:
    Mutex<std::deque<std::function<void()>>> m_functions;
};

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
        const auto waiting = std::make_shared<Waiting>();
        const Post post = [state, waiting](std::function<void()> function) {
            if (!waiting->append(std::move(function)))
                return;
            runOnUserInterfaceThread([state, waiting] {
                const std::function<void()> next = waiting->takeFirst();
                if (!state->dropped)
                    next();
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
