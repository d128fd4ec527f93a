#include "core/process/ProcessRunner.h"

#include "core/process/Mutex.h"
#include "support/FakeTool.h"
#include "support/LeakCheck.h"

#include <QElapsedTimer>
#include <QFile>

#include <csignal>
#include <cstdio>
#include <gmock/gmock.h>
#include <memory>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using ProcessRunner::Command;
using ProcessRunner::ProcessError;
using ProcessRunner::TimeoutError;
using test::FakeTools;
using testing::ElementsAre;

Command shell(const QString &script)
{
    return {QStringLiteral("/bin/sh"), {QStringLiteral("-c"), script}};
}

/// Collects the lines of a run.
struct Lines {
    std::vector<std::string> all;
    ProcessRunner::LineHandler handler()
    {
        return [this](QStringView line) { all.push_back(line.toString().toStdString()); };
    }
};

enum class Outcome { Success, Failure, Cancellation, Timeout, LaunchFailure };

template <typename Function> Outcome outcomeOf(Function function)
{
    try {
        function();
        return Outcome::Success;
    } catch (const CancellationError &) {
        return Outcome::Cancellation;
    } catch (const TimeoutError &) {
        return Outcome::Timeout;
    } catch (const ProcessError &) {
        return Outcome::Failure;
    } catch (const std::system_error &) {
        return Outcome::LaunchFailure;
    }
}

std::string describe(const Command &command)
{
    try {
        ProcessRunner::runCapturing(command);
    } catch (const std::exception &error) {
        return errorDescription(error).toStdString();
    }
    return {};
}

bool isAlive(pid_t process)
{
    return ::kill(process, 0) == 0;
}

TEST(ProcessRunner, ReportsEachWayToEndAsOneOutcome)
{
    struct Case {
        const char16_t *script;
        Outcome capturing;
        Outcome streaming;
    };
    const Case cases[] = {
        {u"exit 0", Outcome::Success, Outcome::Success},
        {u"echo noise >&2", Outcome::Success, Outcome::Success},
        {u"exit 1", Outcome::Failure, Outcome::Failure},
        {u"exit 15", Outcome::Failure, Outcome::Cancellation},
        {u"exit 143", Outcome::Failure, Outcome::Cancellation},
        {u"kill -TERM $$", Outcome::Failure, Outcome::Cancellation},
        {u"kill -KILL $$", Outcome::Failure, Outcome::Cancellation},
    };
    for (const Case &c : cases) {
        const Command command = shell(QString::fromUtf16(c.script));
        SCOPED_TRACE(command.args[1].toStdString());
        EXPECT_EQ(outcomeOf([&] { ProcessRunner::runCapturing(command); }), c.capturing);
        EXPECT_EQ(outcomeOf([&] { ProcessRunner::runStreaming(command, [](QStringView) {}); }),
                  c.streaming);
        EXPECT_EQ(outcomeOf([&] {
                      ProcessRunner::runCapturingStdoutStreamingStderr(command, [](QStringView) {});
                  }),
                  c.streaming);
    }
}

TEST(ProcessRunner, DescribesAFailureWithItsStatusAndTrimmedErrorText)
{
    EXPECT_EQ(describe(shell(u"echo 'bad URL' >&2; exit 1"_s)), "Process failed (exit 1): bad URL");
    EXPECT_EQ(describe(shell(u"echo '  oops' >&2; exit 2"_s)), "Process failed (exit 2): oops");
    EXPECT_EQ(describe(shell(u"exit 3"_s)), "Process failed (exit 3): ");
    EXPECT_EQ(describe(shell(u"kill -TERM $$"_s)), "Process failed (exit 15): ");
}

TEST(ProcessRunner, ReportsAProgramThatCannotBeStarted)
{
    for (const QString &path : {u"/nonexistent/tool"_s, u"/etc/passwd"_s, u"/tmp"_s}) {
        SCOPED_TRACE(path.toStdString());
        Lines lines;
        EXPECT_EQ(outcomeOf([&] {
                      ProcessRunner::runStreaming({path, {}}, lines.handler());
                  }),
                  Outcome::LaunchFailure);
        EXPECT_TRUE(lines.all.empty());
    }
    EXPECT_THAT(describe({u"/nonexistent/tool"_s, {}}),
                testing::HasSubstr("No such file or directory"));
}

TEST(ProcessRunner, PassesArgumentsUnchanged)
{
    const FakeTools tools;
    const QString tool = tools.add(u"tool"_s, u"exit 0"_s);
    const QStringList arguments{u"a b"_s, u"$HOME"_s, u"*"_s, u""_s, u"ü €"_s, u"\"q'"_s};
    ProcessRunner::runCapturing({tool, arguments});
    EXPECT_EQ(tools.arguments(u"tool"_s), arguments);
}

TEST(ProcessRunner, GivesTheProgramTheWholeEnvironmentOrOurs)
{
    ::setenv("CLIPWREN_TEST", "inherited", 1);
    Command command = shell(u"echo \"$CLIPWREN_TEST:$ONLY\""_s);
    EXPECT_EQ(ProcessRunner::runCapturing(command), u"inherited:\n"_s);
    command.environment = ProcessRunner::Environment{{u"ONLY"_s, u"ä"_s}};
    EXPECT_EQ(ProcessRunner::runCapturing(command), u":ä\n"_s);
    ::unsetenv("CLIPWREN_TEST");
}

TEST(ProcessRunner, SplitsOutputAtEitherLineEnd)
{
    struct Case {
        const char16_t *script;
        std::vector<std::string> lines;
    };
    const Case cases[] = {
        {u"printf 'a\\n\\nb\\r\\nc'", {"a", "b", "c"}},
        {u"printf '10%%\\r20%%\\r'", {"10%", "20%"}},
        {u"printf '\\n\\r\\n'", {}},
        {u"printf 'gr\\303\\274n\\n'", {"grün"}},
        // Not UTF-8 as a whole: the piece is left out, later ones come.
        {u"printf 'x\\377y\\n'; sleep 0.1; printf 'ok\\n'", {"ok"}},
    };
    for (const Case &c : cases) {
        const QString script = QString::fromUtf16(c.script);
        SCOPED_TRACE(script.toStdString());
        Lines output;
        ProcessRunner::runStreaming(shell(script), output.handler());
        EXPECT_EQ(output.all, c.lines);
        Lines error;
        ProcessRunner::runStreaming(shell(u"{ "_s + script + u"; } >&2"_s), error.handler());
        EXPECT_EQ(error.all, c.lines);
    }
}

TEST(ProcessRunner, CapturesOneStreamAndStreamsTheOther)
{
    Lines lines;
    const auto output = ProcessRunner::runCapturingStdoutStreamingStderr(
        shell(u"printf 'x\\377y\\n'; printf 'one\\ntwo' >&2"_s), lines.handler());
    EXPECT_EQ(output.standardOutput, u"x\uFFFDy\n"_s);
    EXPECT_EQ(output.standardError, u"one\ntwo"_s);
    EXPECT_THAT(lines.all, ElementsAre("one", "two"));
}

TEST(ProcessRunner, KeepsTheErrorTextOfAStreamedFailure)
{
    try {
        ProcessRunner::runStreaming(shell(u"echo out; echo bad >&2; exit 1"_s), [](QStringView) {});
        FAIL();
    } catch (const ProcessError &error) {
        EXPECT_EQ(error.standardError(), u"bad\n"_s);
        EXPECT_EQ(error.exitCode(), 1);
    }
}

TEST(ProcessRunner, ReadsMoreThanAPipeHoldsFromBothStreams)
{
    const Command flood = shell(u"head -c 3000000 /dev/zero | tr '\\0' e >&2;"
                                " head -c 5000000 /dev/zero | tr '\\0' o"_s);
    EXPECT_EQ(ProcessRunner::runCapturing(flood).size(), 5'000'000);
    const auto output = ProcessRunner::runCapturingStdoutStreamingStderr(flood, [](QStringView) {});
    EXPECT_EQ(output.standardOutput.size(), 5'000'000);
    EXPECT_EQ(output.standardError.size(), 3'000'000);
}

TEST(ProcessRunner, DeliversWhatIsWrittenLast)
{
    for (int run = 0; run < 50; ++run) {
        Lines lines;
        ProcessRunner::runStreaming(shell(u"echo first; echo last"_s), lines.handler());
        ASSERT_EQ(lines.all.back(), "last");
    }
}

TEST(ProcessRunner, DoesNotWaitForAGrandchildThatKeepsThePipesOpen)
{
    QElapsedTimer timer;
    timer.start();
    const QString output =
        ProcessRunner::runCapturing(shell(u"sleep 30 & echo \"$!\"; yes >&2 & echo $!"_s));
    EXPECT_LT(timer.elapsed(), 10'000);
    const QStringList processes = output.split(u'\n', Qt::SkipEmptyParts);
    ASSERT_EQ(processes.size(), 2);
    // Both would outlive the test: the second ends by itself, its pipe has no reader any more.
    ::kill(processes[0].toInt(), SIGKILL);
}

TEST(ProcessRunner, StopsTheProgramAndWhatItStarted)
{
    const FakeTools tools;
    // The tool ends at once on SIGTERM and would leave its own child behind.
    const QString tool =
        tools.add(u"tool"_s, u"sleep 60 & echo $! > \"$0.child\"; echo ready; wait"_s);
    std::stop_source stop;
    const auto onLine = [&](QStringView) { stop.request_stop(); };
    EXPECT_EQ(outcomeOf([&] {
                  ProcessRunner::runStreaming({tool, {}}, onLine, stop.get_token());
              }),
              Outcome::Cancellation);

    QFile file(tool + u".child"_s);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const pid_t grandchild = file.readAll().trimmed().toInt();
    ASSERT_GT(grandchild, 1);
    EXPECT_TRUE(test::eventually([&] { return !isAlive(grandchild); }));
}

TEST(ProcessRunner, StopsARunThatIsSilent)
{
    std::stop_source stop;
    std::jthread requester([&] {
        std::this_thread::sleep_for(20ms);
        stop.request_stop();
    });
    EXPECT_EQ(outcomeOf([&] {
                  ProcessRunner::runCapturing(shell(u"exec sleep 60"_s), std::nullopt,
                                              stop.get_token());
              }),
              Outcome::Failure);
}

TEST(ProcessRunner, KillsAProgramThatIgnoresTheRequest)
{
    Command stubborn = shell(u"trap '' TERM; echo ready; while :; do sleep 1; done"_s);
    stubborn.terminationGrace = 50ms;
    std::stop_source stop;
    const auto onLine = [&](QStringView) { stop.request_stop(); };
    EXPECT_EQ(outcomeOf([&] { ProcessRunner::runStreaming(stubborn, onLine, stop.get_token()); }),
              Outcome::Cancellation);
}

TEST(ProcessRunner, FailsAtOnceAtTheTimeLimitAndStopsTheProgramBehindIt)
{
    for (const auto *script : {u"exec sleep 60", u"trap '' TERM; while :; do sleep 1; done"}) {
        Command command = shell(QString::fromUtf16(script));
        command.terminationGrace = 300ms;
        QElapsedTimer timer;
        timer.start();
        EXPECT_EQ(outcomeOf([&] { ProcessRunner::runCapturing(command, 50ms); }), Outcome::Timeout);
        EXPECT_LT(timer.elapsed(), 250);
        EXPECT_TRUE(test::eventually([] { return test::childCount() == 0; }));
    }
    EXPECT_EQ(outcomeOf([] { ProcessRunner::runCapturing(shell(u"exit 0"_s), 1e300s); }),
              Outcome::Success);
}

TEST(ProcessRunner, HasOneOutcomeWhenExitTimeLimitAndStopComeTogether)
{
    for (int run = 0; run < 200; ++run) {
        std::stop_source stop;
        std::jthread requester([&] {
            std::this_thread::sleep_for(std::chrono::microseconds(run * 20));
            stop.request_stop();
        });
        const Outcome outcome = outcomeOf(
            [&] { ProcessRunner::runCapturing(shell(u"sleep 0.002"_s), 2ms, stop.get_token()); });
        EXPECT_THAT(outcome, testing::AnyOf(Outcome::Success, Outcome::Failure, Outcome::Timeout));
    }
    EXPECT_TRUE(test::eventually([] { return test::childCount() == 0; }));
}

TEST(ProcessRunner, EndsTheProgramWhenALineHandlerThrows)
{
    EXPECT_THROW(ProcessRunner::runStreaming(shell(u"echo x; exec sleep 60"_s),
                                             [](QStringView) { throw std::runtime_error("no"); }),
                 std::runtime_error);
    EXPECT_EQ(test::childCount(), 0);
}

TEST(ProcessRunner, GivesTheProgramNoDescriptorOfOurs)
{
    const char *const count = "ls /proc/self/fd | wc -l";
    const std::unique_ptr<FILE, int (*)(FILE *)> plain(::popen(count, "re"), ::pclose);
    int expected = 0;
    ASSERT_EQ(std::fscanf(plain.get(), "%d", &expected), 1);

    std::stop_source stop;
    const Command command = shell(QString::fromLatin1(count));
    EXPECT_EQ(ProcessRunner::runCapturing(command, 10s, stop.get_token()).toInt(), expected);
}

TEST(ProcessRunner, LeavesNothingOpenAfterThousandsOfRuns)
{
    const int before = test::openDescriptorCount();
    for (int run = 0; run < 2'000; ++run) {
        const bool missing = run % 4 == 0;
        std::stop_source stop;
        outcomeOf([&] {
            ProcessRunner::runStreaming(
                {missing ? u"/nonexistent"_s : u"/bin/true"_s, {}}, [](QStringView) {},
                stop.get_token());
        });
    }
    EXPECT_EQ(test::openDescriptorCount(), before);
}

TEST(Mutex, LetsExactlyOneThreadSetTheFlagFirst)
{
    for (int round = 0; round < 200; ++round) {
        Mutex<bool> flag;
        std::atomic<int> winners = 0;
        {
            std::vector<std::jthread> threads;
            for (int thread = 0; thread < 4; ++thread)
                threads.emplace_back([&] { winners += flag.testAndSet() ? 0 : 1; });
        }
        ASSERT_EQ(winners, 1);
    }
}

} // namespace
} // namespace clipwren
