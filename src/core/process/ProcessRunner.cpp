#include "core/process/ProcessRunner.h"

#include "core/Logging.h"
#include "core/process/ChildProcess.h"
#include "core/process/StopSignal.h"
#include "core/process/ToolOutput.h"
#include "core/text/DecisiveLine.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QThreadPool>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <limits>
#include <memory>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>
#include <utility>

namespace clipwren::ProcessRunner {
namespace {

using namespace Qt::StringLiterals;

using Clock = std::chrono::steady_clock;
/// What one read brought. Never empty.
using ChunkHandler = std::function<void(QByteArrayView chunk)>;

// What a pipe holds at most by default, so that one read takes all that is there.
constexpr qsizetype chunkSize = 64LL * 1024;

// Some thirty years: what is longer would not fit the clock's whole nanoseconds.
constexpr std::chrono::duration<double> longestTimeout{1e9};

/// Sees programs that outlived their time limit to their end, each on a thread of its own.
class TimedOutProcessReaper {
public:
    TimedOutProcessReaper()
    {
        m_threads.setMaxThreadCount(std::numeric_limits<int>::max());
        m_threads.setExpiryTimeout(0);
    }

    void reap(ChildProcess child, std::chrono::milliseconds grace)
    {
        child.standardOutput().close();
        child.standardError().close();
        child.signalGroup(SIGTERM);
        m_threads.start([child = std::make_shared<ChildProcess>(std::move(child)), grace,
                         stop = m_stop.get_token()] {
            const StopSignal stopSignal(stop);
            std::array<pollfd, 2> events{pollfd{child->exitDescriptor(), POLLIN, 0},
                                         pollfd{stopSignal.descriptor(), POLLIN, 0}};
            ::poll(events.data(), events.size(), static_cast<int>(grace.count()));
        });
    }

    void killAll()
    {
        m_stop.request_stop();
        m_threads.waitForDone();
    }

private:
    std::stop_source m_stop;
    QThreadPool m_threads;
};

// Never destroyed: where exit() is called while a program runs, its thread may still come here.
TimedOutProcessReaper &timedOutProcesses()
{
    static TimedOutProcessReaper &instance = *new TimedOutProcessReaper;
    return instance;
}

struct TimeLimit {
    std::optional<std::chrono::duration<double>> timeout;
    bool waitsForExit = true; ///< of the program, before the run fails
};

/// One run of a program, from its start to its exit.
class Run {
public:
    Run(const Command &command, ChunkHandler onOutput, ChunkHandler onError)
        : m_child(command), m_grace(command.terminationGrace), m_onOutput(std::move(onOutput)),
          m_onError(std::move(onError)), m_buffer(chunkSize, Qt::Uninitialized),
          m_program(QFileInfo(command.path).fileName())
    {
        m_clock.start();
        qCDebug(processLog) << "Started" << command.path << command.args;
    }

    /// Reads both outputs until the program has ended. Throws `TimeoutError`.
    ChildProcess::Exit finish(const std::stop_token &stop, const TimeLimit &limit = {})
    {
        const StopSignal stopSignal(stop);
        std::optional<Clock::time_point> deadline;
        if (limit.timeout)
            deadline = Clock::now()
                + std::chrono::duration_cast<Clock::duration>(
                           std::min(*limit.timeout, longestTimeout));
        while (true) {
            std::array<pollfd, 4> events{
                pollfd{m_child.standardOutput().get(), POLLIN, 0},
                pollfd{m_child.standardError().get(), POLLIN, 0},
                pollfd{m_child.exitDescriptor(), POLLIN, 0},
                pollfd{m_terminating ? -1 : stopSignal.descriptor(), POLLIN, 0},
            };
            // A program that takes its time to stop when asked to has not timed out.
            const auto due = m_terminating ? m_killAt : deadline;
            ::poll(events.data(), events.size(), waitTime(due));
            const auto &[output, error, exit, stopRequest] = events;

            if (exit.revents != 0) {
                readRest(m_child.standardOutput(), m_onOutput);
                readRest(m_child.standardError(), m_onError);
                const ChildProcess::Exit result = m_child.reap();
                qCDebug(processLog)
                    << m_program << "ended with" << (result.bySignal ? "signal" : "exit code")
                    << result.status << "after" << m_clock.elapsed() << "ms";
                if (m_hasTimedOut)
                    throw TimeoutError();
                return result;
            }
            if (output.revents != 0)
                readChunk(m_child.standardOutput(), m_onOutput, chunkSize);
            if (error.revents != 0)
                readChunk(m_child.standardError(), m_onError, chunkSize);
            if (stopRequest.revents != 0)
                terminate();
            else if (due && Clock::now() >= *due)
                endOverdue(limit);
        }
    }

private:
    /// Milliseconds until then, for poll(); -1 for no limit.
    static int waitTime(std::optional<Clock::time_point> due)
    {
        if (!due)
            return -1;
        const auto wait = std::chrono::ceil<std::chrono::milliseconds>(*due - Clock::now()).count();
        return static_cast<int>(std::clamp<long long>(wait, 0, 3'600'000));
    }

    void terminate()
    {
        m_terminating = true;
        m_child.signalGroup(SIGTERM);
        m_killAt = Clock::now() + m_grace;
    }

    void endOverdue(const TimeLimit &limit)
    {
        qCDebug(processLog) << m_program << "does not end, after" << m_clock.elapsed() << "ms";
        if (m_terminating) {
            m_killAt.reset();
            m_child.signalGroup(SIGKILL);
        } else if (limit.waitsForExit) {
            m_hasTimedOut = true;
            terminate();
        } else {
            timedOutProcesses().reap(std::move(m_child), m_grace);
            throw TimeoutError();
        }
    }

    /// Reads once. Returns how much came; closes the descriptor at the end of the output.
    qsizetype readChunk(FileDescriptor &from, const ChunkHandler &handler, qsizetype maximum)
    {
        const ssize_t count = ::read(from.get(), m_buffer.data(), static_cast<size_t>(maximum));
        if (count > 0)
            handler(QByteArrayView(m_buffer.constData(), count));
        else if (count == 0 || (errno != EAGAIN && errno != EINTR))
            from.close();
        return std::max<qsizetype>(count, 0);
    }

    /// Reads what lies in the pipe now. Something that the program started may hold the pipe open
    /// and go on writing; that is not waited for.
    void readRest(FileDescriptor &from, const ChunkHandler &handler)
    {
        int waiting = 0;
        if (!from.isOpen() || ::ioctl(from.get(), FIONREAD, &waiting) != 0)
            return;
        qsizetype left = waiting;
        while (left > 0 && from.isOpen()) {
            const qsizetype count = readChunk(from, handler, std::min(left, chunkSize));
            if (count == 0)
                return;
            left -= count;
        }
    }

    ChildProcess m_child;
    std::chrono::milliseconds m_grace;
    ChunkHandler m_onOutput;
    ChunkHandler m_onError;
    QByteArray m_buffer;
    QString m_program;
    QElapsedTimer m_clock;
    bool m_terminating = false;
    bool m_hasTimedOut = false;
    std::optional<Clock::time_point> m_killAt;
};

/// Hands on the lines of each chunk, and keeps the chunk's text when asked to.
ChunkHandler lineSplitter(const LineHandler &onLine, BoundedLog *collected = nullptr)
{
    return [&onLine, collected, splitter = LineSplitter()](QByteArrayView chunk) mutable {
        const QByteArray text = splitter.split(chunk, onLine);
        if (collected)
            collected->append(text);
    };
}

ChunkHandler collector(QByteArray &collected, const Command &command)
{
    return [&collected, &command](QByteArrayView chunk) {
        if (chunk.size() > command.outputLimit - collected.size())
            throw OutputLimitError(QFileInfo(command.path).fileName(), command.outputLimit);
        collected.append(chunk);
    };
}

ChunkHandler collector(BoundedLog &collected)
{
    return [&collected](QByteArrayView chunk) { collected.append(chunk); };
}

QString failed(int exitCode, const QString &reason)
{
    return QCoreApplication::translate("Error", "Process failed (exit %1): %2")
        .arg(QString::number(exitCode), reason);
}

[[noreturn]] void throwError(const Command &command, const ChildProcess::Exit &exit,
                             const QString &standardError)
{
    throw ProcessError(exit.status, standardError, QFileInfo(command.path).fileName());
}

/// How the end of a streamed program is reported.
void throwUnlessSucceeded(const Command &command, const ChildProcess::Exit &exit,
                          const BoundedLog &standardError)
{
    // Programs that catch SIGTERM themselves end with its number, or with 128 more, as shells do.
    if (exit.bySignal || exit.status == SIGTERM || exit.status == 128 + SIGTERM)
        throw CancellationError();
    if (exit.status != 0)
        throwError(command, exit, standardError.text());
}

} // namespace

ProcessError::ProcessError(int exitCode, const QString &standardError, const QString &program)
    : Error(failed(exitCode, standardError.trimmed()),
            failed(exitCode, decisiveLine(standardError)), {program, standardError}),
      m_exitCode(exitCode)
{
}

TimeoutError::TimeoutError() : Error(QCoreApplication::translate("Error", "Operation timed out"))
{
}

OutputLimitError::OutputLimitError(const QString &tool, qsizetype limit)
    : OutputLimitError(
        tool,
        QCoreApplication::translate("Error", "%1 wrote more than %2 MB and was stopped")
            .arg(tool)
            .arg(limit / 1024 / 1024))
{
}

OutputLimitError::OutputLimitError(const QString &tool, const QString &sentence)
    : Error(sentence, sentence, {tool, {}})
{
}

QString runCapturing(const Command &command, std::optional<std::chrono::duration<double>> timeout,
                     const std::stop_token &stop)
{
    QByteArray output;
    BoundedLog error;
    Run run(command, collector(output, command), collector(error));
    const ChildProcess::Exit exit = run.finish(stop, {.timeout = timeout, .waitsForExit = false});
    if (exit.status != 0)
        throwError(command, exit, error.text());
    return QString::fromUtf8(output);
}

void killTimedOutProcesses()
{
    timedOutProcesses().killAll();
}

void runStreaming(const Command &command, const LineHandler &onLine, const std::stop_token &stop)
{
    BoundedLog error;
    Run run(command, lineSplitter(onLine), lineSplitter(onLine, &error));
    throwUnlessSucceeded(command, run.finish(stop), error);
}

Output runCapturingStdoutStreamingStderr(const Command &command, const LineHandler &onStderrLine,
                                         std::optional<std::chrono::duration<double>> timeout,
                                         const std::stop_token &stop)
{
    QByteArray output;
    BoundedLog error;
    Run run(command, collector(output, command), lineSplitter(onStderrLine, &error));
    throwUnlessSucceeded(command, run.finish(stop, {.timeout = timeout}), error);
    return {QString::fromUtf8(output), error.text()};
}

} // namespace clipwren::ProcessRunner
