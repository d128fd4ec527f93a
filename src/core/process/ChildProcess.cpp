#include "core/process/ChildProcess.h"

#include "core/process/Descendants.h"
#include "core/process/ProcessRunner.h"

#include <QFile>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <optional>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <system_error>
#include <utility>
#include <vector>

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

void throwIfFailed(int error, const std::string &what)
{
    if (error != 0)
        throw std::system_error(error, std::generic_category(), what);
}

class FileActions {
public:
    FileActions() { throwIfFailed(::posix_spawn_file_actions_init(&m_actions), "posix_spawn"); }
    FileActions(const FileActions &) = delete;
    FileActions &operator=(const FileActions &) = delete;
    ~FileActions() { ::posix_spawn_file_actions_destroy(&m_actions); }

    void duplicate(const FileDescriptor &from, int to)
    {
        throwIfFailed(::posix_spawn_file_actions_adddup2(&m_actions, from.get(), to),
                      "posix_spawn");
    }
    const posix_spawn_file_actions_t *get() const { return &m_actions; }

private:
    posix_spawn_file_actions_t m_actions{};
};

/// Gives the program no blocked signals, whatever the calling thread blocks, lets it end when
/// nobody reads its output, and lets it wait for its own children, whatever we ignore.
class Attributes {
public:
    Attributes()
    {
        throwIfFailed(::posix_spawnattr_init(&m_attributes), "posix_spawn");
        sigset_t none;
        sigemptyset(&none);
        ::posix_spawnattr_setsigmask(&m_attributes, &none);
        sigset_t reset;
        sigemptyset(&reset);
        sigaddset(&reset, SIGPIPE);
        sigaddset(&reset, SIGCHLD);
        ::posix_spawnattr_setsigdefault(&m_attributes, &reset);
        ::posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }
    Attributes(const Attributes &) = delete;
    Attributes &operator=(const Attributes &) = delete;
    ~Attributes() { ::posix_spawnattr_destroy(&m_attributes); }

    const posix_spawnattr_t *get() const { return &m_attributes; }

private:
    posix_spawnattr_t m_attributes{};
};

/// What programs inherit once it is fixed.
std::optional<StringVector> &fixedEnvironment()
{
    static std::optional<StringVector> environment;
    return environment;
}

pid_t spawn(const ProcessRunner::Command &command, const Pipe &output, const Pipe &error)
{
    const QByteArray path = QFile::encodeName(command.path);
    StringVector arguments;
    arguments.append(path);
    for (const QString &argument : command.args)
        arguments.append(argument.toUtf8());

    StringVector environment;
    if (command.environment) {
        for (const auto &[name, value] : *command.environment)
            environment.append(QString(name + u'=' + value).toUtf8());
    } else if (fixedEnvironment()) {
        environment = *fixedEnvironment();
    } else {
        for (char **variable = environ; *variable; ++variable)
            environment.append(*variable);
    }

    FileActions actions;
    actions.duplicate(output.writeEnd, STDOUT_FILENO);
    actions.duplicate(error.writeEnd, STDERR_FILENO);
    const Attributes attributes;

    pid_t process = 0;
    throwIfFailed(::posix_spawn(&process, path.constData(), actions.get(), attributes.get(),
                                arguments.data(), environment.data()),
                  path.toStdString());
    return process;
}

/// A program that cannot be watched is not left running.
ExitNotifier watch(pid_t process)
{
    try {
        return ExitNotifier(process);
    } catch (const std::system_error &) {
        ::kill(process, SIGKILL);
        ::waitpid(process, nullptr, 0);
        throw;
    }
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
    : m_process(spawn(command, ends.output, ends.error)), m_exitNotifier(watch(m_process)),
      m_standardOutput(nonBlocking(std::move(ends.output.readEnd))),
      m_standardError(nonBlocking(std::move(ends.error.readEnd)))
{
}

ChildProcess::ChildProcess(ChildProcess &&other) noexcept
    : m_process(std::exchange(other.m_process, 0)), m_exitNotifier(std::move(other.m_exitNotifier)),
      m_standardOutput(std::move(other.m_standardOutput)),
      m_standardError(std::move(other.m_standardError))
{
}

ChildProcess::~ChildProcess()
{
    if (m_process == 0)
        return;
    signalAll(SIGKILL);
    try {
        reap();
    } catch (const std::system_error &) {
        // It is gone, whoever reaped it.
    }
}

void ChildProcess::signalAll(int signal)
{
    if (m_process == 0)
        return;
    // Looked up first: once the program is gone, nothing tells whose they were.
    const Descendants descendants(m_process);
    ::kill(m_process, signal);
    descendants.signal(signal);
}

ChildProcess::Exit ChildProcess::reap()
{
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
