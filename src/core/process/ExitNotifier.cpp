#include "core/process/ExitNotifier.h"

#include <cerrno>
#include <system_error>

#ifdef __linux__
// glibc 2.36 does not declare these for C++.
extern "C" {
#include <sys/pidfd.h>
}
#else
#include <sys/wait.h>
#endif

namespace clipwren {

#ifdef __linux__

ExitNotifier::ExitNotifier(pid_t child) : m_descriptor(::pidfd_open(child, 0))
{
    if (!m_descriptor.isOpen())
        throw std::system_error(errno, std::generic_category(), "pidfd_open");
}

#else

ExitNotifier::ExitNotifier(pid_t child)
{
    Pipe pipe = Pipe::open();
    m_descriptor = std::move(pipe.readEnd);
    // Closing the write end makes the read end readable.
    m_waiter = std::jthread([child, end = std::move(pipe.writeEnd)] {
        siginfo_t info{};
        while (::waitid(P_PID, static_cast<id_t>(child), &info, WEXITED | WNOWAIT) != 0
               && errno == EINTR) { }
    });
}

#endif

} // namespace clipwren
