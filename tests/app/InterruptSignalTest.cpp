#include "app/InterruptSignal.h"

#include <QSignalSpy>

#include <csignal>
#include <gtest/gtest.h>

namespace clipwren {
namespace {

TEST(InterruptSignal, leavesASignalIgnoredThatTheStarterIgnores)
{
    std::signal(SIGHUP, SIG_IGN);
    {
        const InterruptSignal interrupt;
        QSignalSpy spy(&interrupt, &InterruptSignal::interrupted);
        std::raise(SIGHUP);
        std::raise(SIGTERM);
        EXPECT_TRUE(spy.wait());
        EXPECT_EQ(spy.count(), 1);
    }
    EXPECT_EQ(std::signal(SIGHUP, SIG_DFL), SIG_IGN);
}

} // namespace
} // namespace clipwren
