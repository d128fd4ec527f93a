#include "platform/media/LatestSeek.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

struct LatestSeekTest : testing::Test {
    QStringList log;
    LatestSeek seeks{[this](double seconds) { log << u"start %1"_s.arg(seconds); }};

    void request(double seconds)
    {
        seeks.request(seconds, [this, seconds](bool finished) {
            log << u"%1 %2"_s.arg(finished ? u"done" : u"gave up").arg(seconds);
        });
    }
};

TEST_F(LatestSeekTest, keepsOnlyTheNewestTargetBehindTheRunningSeek)
{
    request(0);
    request(1);
    EXPECT_EQ(log.join(u'|'), u"gave up 0"_s);
    seeks.open();
    request(2);
    request(3);
    for (int turn = 0; turn < 3; ++turn)
        seeks.finish(true);
    EXPECT_EQ(log.join(u'|'), u"gave up 0|start 1|gave up 2|start 3|done 1|done 3"_s);
}

TEST_F(LatestSeekTest, closingGivesUpEverySeekOnce)
{
    seeks.open();
    request(1);
    request(2);
    seeks.close();
    seeks.finish(true);
    EXPECT_EQ(log.join(u'|'), u"start 1|gave up 1|gave up 2"_s);
}

TEST_F(LatestSeekTest, aCallbackMayAskForTheNextSeek)
{
    seeks.open();
    seeks.request(1, [this](bool) { request(2); });
    seeks.finish(true);
    seeks.finish(true);
    EXPECT_EQ(log.join(u'|'), u"start 1|start 2|done 2"_s);
}

} // namespace
} // namespace clipwren
