#include "core/tasks/BackgroundTask.h"

#include "core/Error.h"

#include <QCoreApplication>
#include <QTest>
#include <QThread>

#include <atomic>
#include <condition_variable>
#include <gmock/gmock.h>
#include <mutex>

namespace clipwren {
namespace {

using Post = BackgroundTask::Post;

/// Work that lasts until it is asked to stop.
int waitForStop(const std::stop_token &stop)
{
    std::mutex lock;
    std::unique_lock guard(lock);
    std::condition_variable_any().wait(guard, stop, [] { return false; });
    throw CancellationError();
}

TEST(BackgroundTask, DeliversPostsThenTheResultOnTheCallersThread)
{
    std::vector<int> seen;
    bool done = false;
    BackgroundTask task;
    task = BackgroundTask::start(
        [&](const std::stop_token &, const Post &post) {
            for (int value = 0; value < 100; ++value)
                post([&seen, value] { seen.push_back(value); });
            return QStringLiteral("result");
        },
        [&](const QString &result) {
            EXPECT_EQ(result, QStringLiteral("result"));
            EXPECT_EQ(seen.size(), 100U);
            EXPECT_EQ(QThread::currentThread(), QCoreApplication::instance()->thread());
            EXPECT_FALSE(task.isRunning());
            done = true;
        },
        [](const std::exception_ptr &) { ADD_FAILURE(); });
    EXPECT_TRUE(task.isRunning());
    EXPECT_TRUE(QTest::qWaitFor([&] { return done; }));
    EXPECT_TRUE(std::is_sorted(seen.begin(), seen.end()));
}

TEST(BackgroundTask, CancellingLetsTheOutcomeArrive)
{
    bool cancelled = false;
    auto task = BackgroundTask::start(
        [](const std::stop_token &stop, const Post &) { return waitForStop(stop); },
        [](int) { ADD_FAILURE(); },
        [&](const std::exception_ptr &error) {
            EXPECT_THROW(std::rethrow_exception(error), CancellationError);
            cancelled = true;
        });
    task.cancel();
    EXPECT_TRUE(QTest::qWaitFor([&] { return cancelled; }));
}

TEST(BackgroundTask, DroppingStopsTheWorkAndSilencesIt)
{
    std::atomic<int> stopped = 0;
    for (int round = 0; round < 300; ++round) {
        auto task = BackgroundTask::start(
            [&](const std::stop_token &stop, const Post &post) {
                post([] { ADD_FAILURE(); });
                while (!stop.stop_requested())
                    std::this_thread::yield();
                ++stopped;
            },
            [] { ADD_FAILURE(); }, [](const std::exception_ptr &) { ADD_FAILURE(); });
        if (round % 2 == 0)
            task = BackgroundTask();
    }
    EXPECT_TRUE(BackgroundTask::waitForAll(std::chrono::seconds(10)));
    QCoreApplication::processEvents();
    EXPECT_EQ(stopped, 300);
}

TEST(BackgroundTask, RunsMoreAtATimeThanThereAreProcessors)
{
    constexpr int count = 40;
    std::atomic<int> running = 0;
    int finished = 0;
    std::vector<BackgroundTask> tasks;
    for (int index = 0; index < count; ++index) {
        tasks.push_back(BackgroundTask::start(
            [&](const std::stop_token &, const Post &) {
                ++running;
                while (running < count)
                    std::this_thread::yield();
            },
            [&] { ++finished; }, [](const std::exception_ptr &) { ADD_FAILURE(); }));
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return finished == count; }));
}

TEST(BackgroundTask, MayBeReplacedByItsOwnOutcome)
{
    bool second = false;
    BackgroundTask task;
    const auto nothing = [](const std::stop_token &, const Post &) {};
    const auto fail = [](const std::exception_ptr &) { ADD_FAILURE(); };
    task = BackgroundTask::start(
        nothing,
        [&] {
            task = BackgroundTask::start(
                nothing, [&] { second = true; }, fail);
        },
        fail);
    EXPECT_TRUE(QTest::qWaitFor([&] { return second; }));
}

} // namespace
} // namespace clipwren
