#include "core/process/ChildProcess.h"

#include "core/process/ProcessRunner.h"

#include <QFile>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <optional>
#include <string>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>
#include <utility>
#include <vector>
// glibc 2.36 does not declare these for C++.
extern "C" {
#include <sys/pidfd.h>
}

namespace clipwren {
namespace {

/// A null-terminated array of C strings that owns its texts.
class StringVector {
public:
    void append(const QByteArray &text) { m_texts.push_back(text); }

    char *const *data()
    {
        m_pointers.clear();
        for (QByteArray &text : m_texts)
            m_pointers.push_back(text.data());
        m_pointers.push_back(nullptr);
        return m_pointers.data();
    }

private:
    std::vector<QByteArray> m_texts;
    std::vector<char *> m_pointers;
};

/// What programs inherit once it is fixed.
std::optional<StringVector> &fixedEnvironment()
{
    static std::optional<StringVector> environment;
    return environment;
}

StringVector argumentsOf(const ProcessRunner::Command &command)
{
    StringVector arguments;
    arguments.append(QFile::encodeName(command.path));
    for (const QString &argument : command.args)
        arguments.append(argument.toUtf8());
    return arguments;
}

StringVector environmentOf(const ProcessRunner::Command &command)
{
    StringVector environment;
    if (command.environment) {
        for (const auto &[name, value] : *command.environment)
            environment.append(QString(name + u'=' + value).toUtf8());
    } else if (fixedEnvironment()) {
        return *fixedEnvironment();
    } else {
        for (char **variable = environ; *variable; ++variable)
            environment.append(*variable);
    }
    return environment;
}

/// No signal reaches this thread, nor a child that still shares our memory, while it lives.
class SignalBlock {
public:
    SignalBlock()
    {
        sigset_t all;
        sigfillset(&all);
        ::pthread_sigmask(SIG_SETMASK, &all, &m_before);
    }
    SignalBlock(const SignalBlock &) = delete;
    SignalBlock &operator=(const SignalBlock &) = delete;
    ~SignalBlock() { ::pthread_sigmask(SIG_SETMASK, &m_before, nullptr); }

private:
    sigset_t m_before{};
};

struct Start {
    char *const *arguments;
    char *const *environment;
    int output;
    int error;
    pid_t parent;
};

/// Our handlers must not run in the child. What we or our starter ignore stays ignored, but for
/// what programs are stopped with and what they need for programs of their own.
void resetSignals()
{
    for (int number = 1; number < NSIG; ++number) {
        struct sigaction action { };
        if (::sigaction(number, nullptr, &action) != 0)
            continue;
        const bool isNeeded =
            number == SIGINT || number == SIGTERM || number == SIGPIPE || number == SIGCHLD;
        if (action.sa_handler == SIG_DFL || (action.sa_handler == SIG_IGN && !isNeeded))
            continue;
        action = {};
        action.sa_handler = SIG_DFL;
        ::sigaction(number, &action, nullptr);
    }
    sigset_t none;
    sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
}

/// The child's part: becomes the program, or returns what is in the way. Calls nothing but the
/// system.
int become(const Start &start)
{
    ::setsid();
    ::prctl(PR_SET_PDEATHSIG, SIGINT);
    // Its parent may have ended before that.
    if (::getppid() != start.parent)
        return ECANCELED;
    if (::dup2(start.output, STDOUT_FILENO) < 0 || ::dup2(start.error, STDERR_FILENO) < 0)
        return errno;
    resetSignals();
    ::execve(start.arguments[0], start.arguments, start.environment);
    return errno;
}

/// As fork() does, but without copying our memory's tables. `failure` is a pipe that exec closes.
pid_t startChild(const Start &start, int failure)
{
    const SignalBlock block;
    // The child writes nothing that we read, and only makes system calls.
    const pid_t child = ::vfork(); // NOLINT(clang-analyzer-security.insecureAPI.vfork)
    if (child != 0)
        return child;
    const int error = become(start); // NOLINT(clang-analyzer-unix.Vfork)
    [[maybe_unused]] const ssize_t written = ::write(failure, &error, sizeof error);
    ::_exit(127);
}

/// Starts the program with the two write ends as its outputs.
pid_t spawn(const ProcessRunner::Command &command, const Pipe &output, const Pipe &error)
{
    StringVector arguments = argumentsOf(command);
    StringVector environment = environmentOf(command);
    Pipe failure = Pipe::open();
    const pid_t child = startChild({arguments.data(), environment.data(), output.writeEnd.get(),
                                    error.writeEnd.get(), ::getpid()},
                                   failure.writeEnd.get());
    int reason = child < 0 ? errno : 0;
    failure.writeEnd.close();
    // Nothing comes through the pipe that exec closes.
    if (child > 0 && ::read(failure.readEnd.get(), &reason, sizeof reason) == sizeof reason)
        ::waitpid(child, nullptr, 0);
    if (reason != 0)
        throw std::system_error(reason, std::generic_category(), command.path.toStdString());
    return child;
}

/// A descriptor that becomes readable when the program has ended, which it does not reap. A program
/// that cannot be watched is not left running.
FileDescriptor watchExit(pid_t process)
{
    FileDescriptor descriptor(::pidfd_open(process, 0));
    if (descriptor.isOpen())
        return descriptor;
    const int error = errno;
    ::kill(-process, SIGKILL);
    ::waitpid(process, nullptr, 0);
    throw std::system_error(error, std::generic_category(), "pidfd_open");
}

FileDescriptor nonBlocking(FileDescriptor descriptor)
{
    ::fcntl(descriptor.get(), F_SETFL, ::fcntl(descriptor.get(), F_GETFL) | O_NONBLOCK);
    return descriptor;
}

} // namespace

void ProcessRunner::fixEnvironment(const QByteArrayList &without)
{
    StringVector environment;
    for (char **variable = environ; *variable; ++variable) {
        const QByteArray text = *variable;
        if (!without.contains(text.left(text.indexOf('='))))
            environment.append(text);
    }
    fixedEnvironment() = std::move(environment);
}

ChildProcess::ChildProcess(const ProcessRunner::Command &command) : ChildProcess(command, Ends())
{
}

ChildProcess::ChildProcess(const ProcessRunner::Command &command, Ends ends)
    : m_process(spawn(command, ends.output, ends.error)), m_exitDescriptor(watchExit(m_process)),
      m_standardOutput(nonBlocking(std::move(ends.output.readEnd))),
      m_standardError(nonBlocking(std::move(ends.error.readEnd)))
{
}

ChildProcess::ChildProcess(ChildProcess &&other) noexcept
    : m_process(std::exchange(other.m_process, 0)),
      m_exitDescriptor(std::move(other.m_exitDescriptor)),
      m_standardOutput(std::move(other.m_standardOutput)),
      m_standardError(std::move(other.m_standardError))
{
}

ChildProcess::~ChildProcess()
{
    if (m_process == 0)
        return;
    try {
        reap();
    } catch (const std::system_error &) {
        // It is gone, whoever reaped it.
    }
}

void ChildProcess::signalGroup(int signal) const
{
    ::kill(-m_process, signal);
}

ChildProcess::Exit ChildProcess::reap()
{
    signalGroup(SIGKILL);
    int status = 0;
    pid_t reaped = 0;
    do
        reaped = ::waitpid(m_process, &status, 0);
    while (reaped < 0 && errno == EINTR);
    m_process = 0;
    // A program whose outcome nobody knows has not succeeded.
    if (reaped < 0)
        throw std::system_error(errno, std::generic_category(), "waitpid");
    if (WIFSIGNALED(status))
        return {WTERMSIG(status), true};
    return {WEXITSTATUS(status), false};
}

} // namespace clipwren
