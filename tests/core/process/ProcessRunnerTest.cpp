#include "core/process/ProcessRunner.h"

#include "core/process/FileDescriptor.h"
#include "core/process/ToolOutput.h"
#include "support/LeakCheck.h"

#include <QElapsedTimer>
#include <QFile>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <gmock/gmock.h>
#include <memory>
#include <sys/wait.h>
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
using testing::ElementsAre;

Command shell(const QString &script)
{
    return {u"/bin/sh"_s, {u"-c"_s, script}};
}

using Lines = std::vector<std::string>;

ProcessRunner::LineHandler into(Lines &lines)
{
    return [&lines](QStringView line) { lines.push_back(line.toString().toStdString()); };
}

enum class Outcome { Success, Failure, Cancellation, Timeout };

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
    }
}

std::string failureOf(const Command &command)
{
    try {
        ProcessRunner::runCapturing(command);
        return {};
    } catch (const std::exception &error) {
        return errorDescription(error).toStdString();
    }
}

TEST(ProcessRunner, reportsEachWayToEndAsOneOutcome)
{
    const auto ignore = [](QStringView) {};
    const std::tuple<QString, Outcome, Outcome> cases[] = {
        {u"echo noise >&2"_s, Outcome::Success, Outcome::Success},
        {u"exit 1"_s, Outcome::Failure, Outcome::Failure},
        {u"exit 15"_s, Outcome::Failure, Outcome::Cancellation},
        {u"exit 143"_s, Outcome::Failure, Outcome::Cancellation},
        {u"kill -TERM $$"_s, Outcome::Failure, Outcome::Cancellation},
        {u"kill -KILL $$"_s, Outcome::Failure, Outcome::Cancellation},
    };
    for (const auto &[script, capturing, streaming] : cases) {
        SCOPED_TRACE(script.toStdString());
        const Command command = shell(script);
        EXPECT_EQ(outcomeOf([&] { ProcessRunner::runCapturing(command); }), capturing);
        EXPECT_EQ(outcomeOf([&] { ProcessRunner::runStreaming(command, ignore); }), streaming);
        const auto both = [&] {
            ProcessRunner::runCapturingStdoutStreamingStderr(command, ignore);
        };
        EXPECT_EQ(outcomeOf(both), streaming);
    }
}

TEST(ProcessRunner, describesAFailureWithItsStatusAndTrimmedErrorText)
{
    EXPECT_EQ(failureOf(shell(u"echo 'bad URL' >&2; exit 1"_s)),
              "Process failed (exit 1): bad URL");
    EXPECT_EQ(failureOf(shell(u"echo '  oops' >&2; exit 2"_s)), "Process failed (exit 2): oops");
    EXPECT_EQ(failureOf(shell(u"exit 3"_s)), "Process failed (exit 3): ");
    EXPECT_EQ(failureOf(shell(u"kill -TERM $$"_s)), "Process failed (exit 15): ");
}

TEST(ProcessRunner, letsTheProgramEndWhenNobodyReads)
{
    const auto ours = std::signal(SIGPIPE, SIG_IGN);
    EXPECT_EQ(failureOf(shell(u"kill -PIPE $$"_s)), "Process failed (exit 13): ");
    std::signal(SIGPIPE, ours);
}

TEST(ProcessRunner, takesNoProgramForSuccessfulWhoseExitStatusIsLost)
{
    const auto ours = std::signal(SIGCHLD, SIG_IGN);
    for (const QString &script : {u"exit 0"_s, u"exit 3"_s}) {
        EXPECT_THROW(ProcessRunner::runCapturing(shell(script)), std::system_error);
        EXPECT_THROW(ProcessRunner::runStreaming(shell(script), [](QStringView) {}),
                     std::system_error);
    }
    std::signal(SIGCHLD, ours);
}

TEST(ProcessRunner, reportsAProgramThatCannotBeStarted)
{
    for (const QString &path : {u"/nonexistent/tool"_s, u"/etc/passwd"_s, u"/tmp"_s}) {
        SCOPED_TRACE(path.toStdString());
        EXPECT_THROW(ProcessRunner::runStreaming({path, {}}, [](QStringView) { ADD_FAILURE(); }),
                     std::system_error);
    }
    EXPECT_THAT(failureOf({u"/nonexistent/tool"_s, {}}), testing::HasSubstr(std::strerror(ENOENT)));
}

TEST(ProcessRunner, givesTheProgramTheWholeEnvironmentOrOurs)
{
    ::setenv("CLIPWREN_TEST", "inherited", 1);
    Command command = shell(u"echo \"$CLIPWREN_TEST:$ONLY\""_s);
    EXPECT_EQ(ProcessRunner::runCapturing(command), u"inherited:\n"_s);
    command.environment = ProcessRunner::Environment{{u"ONLY"_s, u"ä"_s}};
    EXPECT_EQ(ProcessRunner::runCapturing(command), u":ä\n"_s);
    ::unsetenv("CLIPWREN_TEST");
}

TEST(ProcessRunner, splitsOutputAtEitherLineEnd)
{
    const std::pair<QString, std::vector<std::string>> cases[] = {
        {u"printf 'a\\n\\nb\\r\\nc'"_s, {"a", "b", "c"}},
        {u"printf '10%%\\r20%%\\r'"_s, {"10%", "20%"}},
        {u"printf '\\n\\r\\n'"_s, {}},
        {u"printf 'gr\\303\\274n\\n'"_s, {"grün"}},
        // A character that comes in two pieces.
        {u"printf 'gr\\303'; sleep 0.1; printf '\\274n\n'"_s, {"gr", "ün"}},
        {u"printf 'a\\303'; sleep 0.1; printf 'ok\n'"_s, {"a", "ok"}},
        // Not UTF-8 as a whole: the piece is left out, later ones come.
        {u"printf 'x\\377y\\n'; sleep 0.1; printf 'ok\\n'"_s, {"ok"}},
    };
    for (const auto &[script, lines] : cases) {
        SCOPED_TRACE(script.toStdString());
        Lines output;
        ProcessRunner::runStreaming(shell(script), into(output));
        EXPECT_EQ(output, lines);
        Lines error;
        ProcessRunner::runStreaming(shell(u"{ "_s + script + u"; } >&2"_s), into(error));
        EXPECT_EQ(error, lines);
    }
}

TEST(ProcessRunner, capturesOneStreamAndStreamsTheOther)
{
    Lines lines;
    const auto output = ProcessRunner::runCapturingStdoutStreamingStderr(
        shell(u"printf 'x\\377y\\n'; printf 'one\\ntwo' >&2"_s), into(lines));
    EXPECT_EQ(output.standardOutput, u"x\uFFFDy\n"_s);
    EXPECT_EQ(output.standardError, u"one\ntwo"_s);
    EXPECT_THAT(lines, ElementsAre("one", "two"));
}

TEST(ProcessRunner, readsMoreThanAPipeHoldsFromBothStreams)
{
    const Command flood = shell(u"head -c 1500000 /dev/zero | tr '\\0' e >&2;"
                                " head -c 5000000 /dev/zero | tr '\\0' o"_s);
    EXPECT_EQ(ProcessRunner::runCapturing(flood).size(), 5'000'000);
    const auto output = ProcessRunner::runCapturingStdoutStreamingStderr(flood, [](QStringView) {});
    EXPECT_EQ(output.standardOutput.size(), 5'000'000);
    EXPECT_EQ(output.standardError.size(), 1'500'000);
}

TEST(ProcessRunner, keepsTheBeginningAndTheEndOfALongLog)
{
    const Command flood =
        shell(u"{ echo first; yes 'gr\u00fcn' | head -c 9000000; echo; echo last; }"
              " >&2; exit 1"_s);
    const auto ignore = [](QStringView) {};
    const std::function<void()> operations[] = {
        [&] { ProcessRunner::runCapturing(flood); },
        [&] { ProcessRunner::runStreaming(flood, ignore); },
        [&] { ProcessRunner::runCapturingStdoutStreamingStderr(flood, ignore); }};
    for (const auto &operation : operations) {
        try {
            operation();
            ADD_FAILURE();
        } catch (const ProcessError &error) {
            const QString log = error.standardError();
            EXPECT_LT(log.size(), 2'200'000);
            EXPECT_TRUE(log.startsWith(u"first\ngr\u00fcn\n"_s));
            EXPECT_TRUE(log.endsWith(u"\nlast\n"_s));
            EXPECT_TRUE(log.contains(u" bytes left out …\ngr\u00fcn\n"_s));
        }
    }
}

TEST(BoundedLog, leavesOutWholeLinesOrCharactersAndCountsThem)
{
    const std::pair<QByteArray, QString> cases[] = {
        {"0123456789abcdefghij", u"0123456789abcdefghij"_s},
        {"one\ntwo\nthree\nfour\nfive\n", u"one\ntwo\n… 11 bytes left out …\nfive\n"_s},
        {"\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc\u00fcx",
         u"üüüü\n… 6 bytes left out …\nüüüüx"_s},
    };
    for (const auto &[text, expected] : cases) {
        for (const qsizetype piece : {1, 7, 100}) {
            BoundedLog log(10);
            for (qsizetype from = 0; from < text.size(); from += piece)
                log.append(text.mid(from, piece));
            EXPECT_EQ(log.text().toStdString(), expected.toStdString());
        }
    }
}

TEST(ProcessRunner, endsAProgramThatWritesWithoutEnd)
{
    Command endless = shell(u"exec yes"_s);
    endless.outputLimit = 2 * 1024 * 1024;
    EXPECT_EQ(failureOf(endless), "sh wrote more than 2 MB and was stopped");
    EXPECT_THROW(ProcessRunner::runCapturingStdoutStreamingStderr(endless, [](QStringView) {}),
                 ProcessRunner::OutputLimitError);
    EXPECT_EQ(test::childCount(), 0);
}

TEST(ProcessRunner, deliversWhatIsWrittenLast)
{
    for (int run = 0; run < 50; ++run) {
        Lines lines;
        ProcessRunner::runStreaming(shell(u"echo first; echo last"_s), into(lines));
        ASSERT_EQ(lines.back(), "last");
    }
}

bool isGone(const QString &process)
{
    // One that has ended and is still to be reaped by the system has none.
    return test::eventually([&] {
        QFile commandLine(u"/proc/%1/cmdline"_s.arg(process));
        return !commandLine.open(QIODevice::ReadOnly) || commandLine.readAll().isEmpty();
    });
}

TEST(ProcessRunner, stopsWhatAProgramLeavesBehindWithoutWaitingForIt)
{
    QElapsedTimer timer;
    timer.start();
    Command command = shell(u"sleep 30 & echo $!; yes >&2 & echo $!;"
                            " { trap '' TERM; exec sleep 30; } & echo $!"_s);
    command.terminationGrace = 1s;
    const QString output = ProcessRunner::runCapturing(command);
    EXPECT_LT(timer.elapsed(), 900);
    const QStringList processes = output.split(u'\n', Qt::SkipEmptyParts);
    ASSERT_EQ(processes.size(), 3);
    for (const QString &process : processes)
        EXPECT_TRUE(isGone(process));
}

TEST(ProcessRunner, stopsTheProgramAndWhatItStarted)
{
    // The shell ends at once on SIGTERM and would leave its own child behind.
    for (const QString &child : {u"exec sleep 60"_s, u"trap '' TERM; exec sleep 60"_s}) {
        SCOPED_TRACE(child.toStdString());
        Command parent = shell(u"{ %1; } & echo $!; wait"_s.arg(child));
        parent.terminationGrace = 100ms;
        QString grandchild;
        std::stop_source stop;
        const auto onLine = [&](QStringView line) {
            grandchild = line.toString();
            // It takes a moment to ignore what it ignores.
            std::this_thread::sleep_for(20ms);
            stop.request_stop();
        };
        EXPECT_THROW(ProcessRunner::runStreaming(parent, onLine, stop.get_token()),
                     CancellationError);
        ASSERT_GT(grandchild.toInt(), 1);
        EXPECT_TRUE(isGone(grandchild));
    }
}

TEST(ProcessRunner, endsTheProgramWhenWeAreKilled)
{
    const Pipe pipe = Pipe::open();
    const pid_t us = ::fork();
    if (us == 0) {
        ProcessRunner::runStreaming(shell(u"echo $$; exec sleep 60"_s), [&](QStringView line) {
            const std::string id = line.toString().toStdString();
            EXPECT_GT(::write(pipe.writeEnd.get(), id.data(), id.size()), 0);
        });
        ::_exit(0);
    }
    std::array<char, 16> id{};
    EXPECT_GT(::read(pipe.readEnd.get(), id.data(), id.size()), 0);
    ::kill(us, SIGKILL);
    ::waitpid(us, nullptr, 0);
    EXPECT_TRUE(isGone(QString::fromLatin1(id.data())));
}

TEST(ProcessRunner, killsAProgramThatIgnoresTheRequest)
{
    Command stubborn = shell(u"trap '' TERM; echo ready; while :; do sleep 1; done"_s);
    stubborn.terminationGrace = 50ms;
    std::stop_source stop;
    EXPECT_THROW(ProcessRunner::runStreaming(
                     stubborn, [&](QStringView) { stop.request_stop(); }, stop.get_token()),
                 CancellationError);
}

TEST(ProcessRunner, failsAtOnceAtTheTimeLimitAndStopsTheProgramBehindIt)
{
    for (const auto *script : {u"exec sleep 60", u"trap '' TERM; while :; do sleep 1; done"}) {
        Command command = shell(QString::fromUtf16(script));
        command.terminationGrace = 300ms;
        QElapsedTimer timer;
        timer.start();
        EXPECT_THROW(ProcessRunner::runCapturing(command, 50ms), TimeoutError);
        EXPECT_LT(timer.elapsed(), 250);
        EXPECT_TRUE(test::eventually([] { return test::childCount() == 0; }));
    }
    EXPECT_NO_THROW(ProcessRunner::runCapturing(shell(u"exit 0"_s), 1e300s));
}

TEST(ProcessRunner, hasOneOutcomeWhenExitTimeLimitAndStopComeTogether)
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

TEST(ProcessRunner, endsTheProgramWhenALineHandlerThrows)
{
    EXPECT_THROW(ProcessRunner::runStreaming(shell(u"echo x; exec sleep 60"_s),
                                             [](QStringView) { throw std::runtime_error("no"); }),
                 std::runtime_error);
    EXPECT_EQ(test::childCount(), 0);
}

TEST(ProcessRunner, givesTheProgramNoDescriptorOfOurs)
{
    const char *const count = "ls /proc/self/fd | wc -l";
    const std::unique_ptr<FILE, int (*)(FILE *)> plain(::popen(count, "re"), ::pclose);
    int expected = 0;
    ASSERT_EQ(std::fscanf(plain.get(), "%d", &expected), 1);

    std::stop_source stop;
    const Command command = shell(QString::fromLatin1(count));
    EXPECT_EQ(ProcessRunner::runCapturing(command, 10s, stop.get_token()).toInt(), expected);
}

} // namespace
} // namespace clipwren
