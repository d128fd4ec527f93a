#pragma once

#include "core/Error.h"

#include <QByteArrayList>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <stop_token>

/// Runs one external program to its end and reports how it ended.
///
/// Every operation blocks the thread that calls it, so none is called on the user-interface
/// thread. Each either returns or throws exactly one outcome:
///  - `ProcessError`, `TimeoutError`, `OutputLimitError` or `CancellationError`, as said below;
///  - `std::system_error` with errno's text when the program cannot be started, or cannot be
///    waited for because the process ignores SIGCHLD.
///
/// A request to stop sends the program, and what it started itself, SIGTERM. The call then ends
/// through the program's exit like any other run. A program that is still there after
/// `Command::terminationGrace` is killed, and so is, at the program's exit, what it leaves running.
/// Only what leaves the program's process group goes on. Programs do not outlive this process for
/// long, however it ends.
namespace clipwren::ProcessRunner {

using Environment = std::map<QString, QString>;

/// What to run.
struct Command {
    QString path; ///< absolute path of the executable; it is not searched for
    QStringList args; ///< the argument vector without the program's name; no shell reads it
    /// The whole environment; absent: ours, or what `fixEnvironment` made of it.
    std::optional<Environment> environment = std::nullopt;
    std::chrono::milliseconds terminationGrace = std::chrono::seconds(5);
    qsizetype outputLimit = 64LL * 1024 * 1024; ///< bytes of standard output that are kept at most
};

/// The program ended with a status other than 0. The summary holds only the decisive line of what
/// it wrote.
class ProcessError : public Error {
public:
    ProcessError(int exitCode, const QString &standardError, const QString &program = {});

    /// The exit status, or the number of the signal that ended the program.
    int exitCode() const { return m_exitCode; }
    /// What the program wrote to its standard error; of more than 2 MB the beginning and the end.
    QString standardError() const { return toolLog().text; }

private:
    int m_exitCode;
};

/// The time limit passed.
class TimeoutError : public Error {
public:
    TimeoutError();
};

/// The program wrote more than `Command::outputLimit` where its output is wanted whole.
class OutputLimitError : public Error {
public:
    OutputLimitError(const QString &tool, qsizetype limit);

private:
    OutputLimitError(const QString &tool, const QString &sentence);
};

struct Output {
    QString standardOutput;
    QString standardError; ///< of more than 2 MB the beginning and the end
};

/// From now on programs inherit the environment as it is at this moment, but for the variables
/// `without`, whatever we do to ours afterwards. Call before there are other threads: they read
/// ours while they start a program.
void fixEnvironment(const QByteArrayList &without);

/// One non-empty line without its line end. The text lives only during the call.
///
/// Called on the thread that runs the operation, while the program runs. Two streams of one
/// program are not ordered against each other. A line that reaches us in two pieces of output
/// comes as two lines, so that none is longer than a piece, which is 64 KB; output that is not
/// UTF-8 is left out piece by piece.
using LineHandler = std::function<void(QStringView line)>;

/// Runs the program and returns its whole standard output. A program that writes more than
/// `Command::outputLimit` is killed.
///
/// `timeout`, in seconds, is finite and not negative. When it passes, the call fails at once with
/// `TimeoutError`; the program is stopped behind it. Any other status than 0, a signal included,
/// is a `ProcessError`.
QString runCapturing(const Command &command,
                     std::optional<std::chrono::duration<double>> timeout = std::nullopt,
                     const std::stop_token &stop = {});

/// Kills what is still being stopped behind a call that has ended, from now on at once. For the end
/// of the process, when no operation runs any more.
void killTimedOutProcesses();

/// Runs the program and hands on every line of both its outputs.
///
/// Throws `CancellationError` when a signal or status 15 or 143 ended the program, `ProcessError`
/// for any other status than 0.
void runStreaming(const Command &command, const LineHandler &onLine,
                  const std::stop_token &stop = {});

/// Runs the program, hands on every line of its standard error, and returns both outputs. Throws as
/// `runStreaming` does; a program that writes more than `Command::outputLimit` is killed.
///
/// When `timeout`, in seconds, passes before a stop is requested, the program is stopped, and the
/// call fails with `TimeoutError` at its exit.
Output runCapturingStdoutStreamingStderr(
    const Command &command, const LineHandler &onStderrLine,
    std::optional<std::chrono::duration<double>> timeout = std::nullopt,
    const std::stop_token &stop = {});

} // namespace clipwren::ProcessRunner
