#include "core/tasks/BackgroundTask.h"

#include "core/Error.h"

#include <QCoreApplication>
#include <QTest>
#include <QThread>

#include <atomic>
#include <gmock/gmock.h>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;
using Post = BackgroundTask::Post;

void fail(const std::exception_ptr &)
{
    ADD_FAILURE();
}

TEST(BackgroundTask, deliversPostsThenTheResultOnTheCallersThread)
{
    std::vector<int> seen;
    bool done = false;
    BackgroundTask task;
    task = BackgroundTask::start(
        [&](const std::stop_token &, const Post &post) {
            for (int value = 0; value < 100; ++value)
                post([&seen, value] { seen.push_back(value); });
            return u"result"_s;
        },
        [&](const QString &result) {
            EXPECT_EQ(result, u"result"_s);
            EXPECT_EQ(seen.size(), 100U);
            EXPECT_EQ(QThread::currentThread(), QCoreApplication::instance()->thread());
            EXPECT_FALSE(task.isRunning());
            done = true;
        },
        fail);
    EXPECT_TRUE(task.isRunning());
    EXPECT_TRUE(QTest::qWaitFor([&] { return done; }));
    EXPECT_TRUE(std::is_sorted(seen.begin(), seen.end()));
}

TEST(BackgroundTask, keepsFewPostsThatNobodyRunsAndAlwaysTheLast)
{
    std::vector<int> seen;
    const auto counted = std::make_shared<int>();
    bool done = false;
    const auto task = BackgroundTask::start(
        [&](const std::stop_token &, const Post &post) {
            for (int value = 0; value < 100'000; ++value)
                post([&seen, value, counted] { seen.push_back(value); });
        },
        [&] { done = true; }, fail);
    // The user-interface thread is busy with something else.
    EXPECT_TRUE(BackgroundTask::waitForAll(std::chrono::seconds(20)));
    EXPECT_LT(counted.use_count(), 1000);
    EXPECT_TRUE(QTest::qWaitFor([&] { return done; }));
    EXPECT_TRUE(std::is_sorted(seen.begin(), seen.end()));
    EXPECT_EQ(seen.back(), 99'999);
}

TEST(BackgroundTask, cancellingLetsTheOutcomeArrive)
{
    bool cancelled = false;
    auto task = BackgroundTask::start(
        [](const std::stop_token &stop, const Post &) {
            while (!stop.stop_requested())
                std::this_thread::yield();
            throw CancellationError();
        },
        [] { ADD_FAILURE(); },
        [&](const std::exception_ptr &error) {
            EXPECT_THROW(std::rethrow_exception(error), CancellationError);
            cancelled = true;
        });
    task.cancel();
    EXPECT_TRUE(QTest::qWaitFor([&] { return cancelled; }));
}

TEST(BackgroundTask, droppingStopsTheWorkAndSilencesIt)
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
            [] { ADD_FAILURE(); }, fail);
        if (round % 2 == 0)
            task = BackgroundTask();
    }
    EXPECT_TRUE(BackgroundTask::waitForAll(std::chrono::seconds(10)));
    QCoreApplication::processEvents();
    EXPECT_EQ(stopped, 300);
}

TEST(BackgroundTask, runsMoreAtATimeThanThereAreProcessors)
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
            [&] { ++finished; }, fail));
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return finished == count; }));
}

} // namespace
} // namespace clipwren
