#include "core/process/ChildProcess.h"

#include "core/process/ProcessRunner.h"
#include "core/process/Spawn.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/wait.h>
#include <system_error>
#include <utility>

namespace clipwren {
namespace {

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
      m_signalled(std::move(other.m_signalled)),
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
    // Looked up first: once the program is gone, some cannot be told from others' processes.
    m_signalled.add(Descendants(m_process));
    ::kill(m_process, signal);
    m_signalled.signal(signal);
}

Descendants ChildProcess::takeDescendants()
{
    m_signalled.add(Descendants(m_process));
    return std::move(m_signalled);
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
