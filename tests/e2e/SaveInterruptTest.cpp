#include "e2e/ProgramTest.h"

#include <QDeadlineTimer>

#include <csignal>
#include <functional>
#include <thread>

namespace clipwren::test {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

bool waitUntil(const std::function<bool()> &condition, std::chrono::milliseconds limit)
{
    const QDeadlineTimer deadline(limit);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        std::this_thread::sleep_for(20ms);
    }
    return true;
}

struct InterruptCase {
    const char *name;
    QString page;
    QStringList options;
    QString toolArgument; ///< an argument that only the tool at work at the right time has
    QString unfinishedFile; ///< a part of a name in the downloads folder that shows it is at work
    int signal;

    friend void PrintTo(const InterruptCase &tested, std::ostream *out) { *out << tested.name; }
};

class SaveInterruptTest : public SaveTest, public testing::WithParamInterface<InterruptCase> { };

TEST_P(SaveInterruptTest, stopsTheToolAndLeavesNothingRunning)
{
    const InterruptCase &interrupt = GetParam();
    // The home's path in the address marks every tool that is run for it.
    const QString marked = address(interrupt.page) + u"&from="_s + m_home.path();
    ProgramRun run(program(), QStringList{u"save"_s} + interrupt.options + QStringList{marked},
                   m_home.environment());
    const bool atWork = waitUntil(
        [&] {
            return !m_home.processes().filter(interrupt.toolArgument).isEmpty()
                && (interrupt.unfinishedFile.isEmpty()
                    || !m_home.savedFiles().filter(interrupt.unfinishedFile).isEmpty());
        },
        60s);
    ASSERT_TRUE(atWork);

    run.sendSignal(interrupt.signal);

    ASSERT_TRUE(run.waitForExit(20s));
    EXPECT_EQ(run.exitStatus(), 130) << run.standardError().toStdString();
    EXPECT_EQ(run.standardOutput(), QString());
    EXPECT_EQ(m_home.processes(), QStringList());
}

const InterruptCase interruptCases[] = {
    {.name = "lookUp",
     .page = u"silent"_s,
     .options = {},
     .toolArgument = u" -J "_s,
     .unfinishedFile = {},
     .signal = SIGTERM},
    {.name = "downloadByTerminal",
     .page = u"slow"_s,
     .options = {},
     .toolArgument = u" --newline "_s,
     .unfinishedFile = u".part"_s,
     .signal = SIGINT},
    {.name = "downloadByTerminate",
     .page = u"slow"_s,
     .options = {},
     .toolArgument = u" --newline "_s,
     .unfinishedFile = u".part"_s,
     .signal = SIGTERM},
    {.name = "encoding",
     .page = u"tide-clock-01"_s,
     .options = {u"--format"_s, u"proRes422"_s},
     .toolArgument = u" -progress "_s,
     .unfinishedFile = u".mov"_s,
     .signal = SIGTERM},
};

INSTANTIATE_TEST_SUITE_P(, SaveInterruptTest, testing::ValuesIn(interruptCases),
                         [](const auto &tested) { return std::string(tested.param.name); });

} // namespace
} // namespace clipwren::test
