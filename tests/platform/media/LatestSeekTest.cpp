#include "platform/media/LatestSeek.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace clipwren {
namespace {

struct LatestSeekTest : testing::Test {
    QStringList log;
    LatestSeek seeks{[this](double seconds) { log << QStringLiteral("start %1").arg(seconds); }};

    void request(double seconds)
    {
        seeks.request(seconds, [this, seconds](bool finished) {
            log << QStringLiteral("%1 %2").arg(finished ? u"done" : u"gave up").arg(seconds);
        });
    }
};

TEST_F(LatestSeekTest, keepsOnlyTheNewestTargetBehindTheRunningSeek)
{
    seeks.open();
    for (const double seconds : {1.0, 2.0, 3.0})
        request(seconds);
    seeks.finish(true);
    seeks.finish(true);
    seeks.finish(true);
    const QStringList expected{QStringLiteral("start 1"), QStringLiteral("gave up 2"),
                               QStringLiteral("start 3"), QStringLiteral("done 1"),
                               QStringLiteral("done 3")};
    EXPECT_EQ(log, expected);
}

TEST_F(LatestSeekTest, holdsTheNewestTargetUntilSeekingIsAllowed)
{
    request(1);
    request(2);
    EXPECT_EQ(log, QStringList(QStringLiteral("gave up 1")));
    seeks.open();
    EXPECT_EQ(log.last(), QStringLiteral("start 2"));
}

TEST_F(LatestSeekTest, closingGivesUpEverySeekOnce)
{
    seeks.open();
    request(1);
    request(2);
    seeks.close();
    seeks.finish(true);
    const QStringList expected{QStringLiteral("start 1"), QStringLiteral("gave up 1"),
                               QStringLiteral("gave up 2")};
    EXPECT_EQ(log, expected);
}

TEST_F(LatestSeekTest, aCallbackMayAskForTheNextSeek)
{
    seeks.open();
    seeks.request(1, [this](bool) { request(2); });
    seeks.finish(true);
    seeks.finish(true);
    const QStringList expected{QStringLiteral("start 1"), QStringLiteral("start 2"),
                               QStringLiteral("done 2")};
    EXPECT_EQ(log, expected);
}

} // namespace
} // namespace clipwren
