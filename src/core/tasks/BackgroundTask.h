#pragma once

#include <chrono>
#include <exception>
#include <functional>
#include <memory>
#include <stop_token>
#include <type_traits>

namespace clipwren {

/// One piece of work that runs beside the user interface, owned by the object that asked for it.
///
/// Made, moved and destroyed on the user-interface thread. `cancel()` asks the work to stop; its
/// outcome, usually a `CancellationError`, still arrives. Destroying or replacing the task asks
/// the work to stop too, and drops everything it would still report.
class BackgroundTask {
public:
    /// Runs a function on the user-interface thread unless the task was dropped meanwhile.
    /// May be called on any thread while the work runs; calls keep their order, and all come
    /// before the outcome. Of hundreds that are posted faster than they are run, some are left out,
    /// never the last.
    using Post = std::function<void(std::function<void()>)>;

    BackgroundTask() = default;
    BackgroundTask(BackgroundTask &&) noexcept = default;
    BackgroundTask &operator=(BackgroundTask &&other) noexcept;
    ~BackgroundTask();

    /// Starts `work(std::stop_token, const Post &)` on a thread of its own. What it returns goes to
    /// `done`, what it throws to `failed(std::exception_ptr)`, each on the user-interface thread.
    template <typename Work, typename Done, typename Failed>
    static BackgroundTask start(Work work, Done done, Failed failed);

    void cancel();
    /// True from the start until `done` or `failed` is about to be called.
    bool isRunning() const;

    /// Asks all work to stop, also what is started later. Nothing is reported any more once the
    /// event loop has ended. For the end of the process; may be called while exit() runs.
    static void stopAll();
    /// Waits until no work runs any more. False when the time passed first. Called once all
    /// tasks are dropped or stopped, before the application object goes.
    static bool waitForAll(std::chrono::milliseconds timeout);

private:
    struct State {
        std::stop_source stop;
        // Both are touched on the user-interface thread only.
        bool dropped = false;
        bool finished = false;
    };
    using Finish = std::function<void()>;

    explicit BackgroundTask(std::shared_ptr<State> state);
    void drop();
    /// Runs `work` on the pool. What it returns is called on the user-interface thread at the end.
    static BackgroundTask
    launch(std::function<Finish(const std::stop_token &stop, const Post &post)> work);

    std::shared_ptr<State> m_state;
};

template <typename Work, typename Done, typename Failed>
BackgroundTask BackgroundTask::start(Work work, Done done, Failed failed)
{
    using Result = std::invoke_result_t<Work, std::stop_token, const Post &>;
    return launch([work = std::move(work), done = std::move(done), failed = std::move(failed)](
                      const std::stop_token &stop, const Post &post) mutable -> Finish {
        try {
            if constexpr (std::is_void_v<Result>) {
                work(stop, post);
                return [done = std::move(done)]() mutable { done(); };
            } else {
                auto result = std::make_shared<Result>(work(stop, post));
                return [done = std::move(done), result]() mutable { done(std::move(*result)); };
            }
        } catch (...) {
            return [failed = std::move(failed), error = std::current_exception()]() mutable {
                failed(error);
            };
        }
    });
}

} // namespace clipwren
