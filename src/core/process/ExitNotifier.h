#pragma once

#include "core/process/FileDescriptor.h"

#include <sys/types.h>
#include <thread>

namespace clipwren {

/// A descriptor that becomes readable when a child of ours has ended. Does not reap the child.
class ExitNotifier {
public:
    /// Throws `std::system_error`.
    explicit ExitNotifier(pid_t child);

    int descriptor() const { return m_descriptor.get(); }

private:
    FileDescriptor m_descriptor;
#ifndef __linux__
    std::jthread m_waiter;
#endif
};

} // namespace clipwren
