#include "core/process/Spawn.h"

#include "core/process/ProcessRunner.h"

#include <QFile>

#include <cerrno>
#include <csignal>
#include <optional>
#include <string>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>
#include <vector>
#ifdef __linux__
#include <sys/prctl.h>
#endif

extern char **environ;

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
#ifdef __linux__
    ::prctl(PR_SET_PDEATHSIG, SIGINT);
    // Its parent may have ended before that.
    if (::getppid() != start.parent)
        return ECANCELED;
#endif
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
    const pid_t child = ::vfork();
    if (child != 0)
        return child;
    const int error = become(start);
    [[maybe_unused]] const ssize_t written = ::write(failure, &error, sizeof error);
    ::_exit(127);
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
    if (child > 0 && ::read(failure.readEnd.get(), &reason, sizeof reason) == sizeof reason)
        ::waitpid(child, nullptr, 0);
    if (reason != 0)
        throw std::system_error(reason, std::generic_category(), command.path.toStdString());
    return child;
}

} // namespace clipwren
