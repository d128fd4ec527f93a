#pragma once

#include "core/process/FileDescriptor.h"

#include <chrono>
#include <sys/types.h>
#include <vector>

namespace clipwren {

/// The processes that a program has started so far, directly or through others, without itself. Of
/// those whose starter has ended the ones in the program's session.
///
/// Held by handles, so a signal never reaches a process that took over one of their numbers.
/// Always empty on systems without /proc.
class Descendants {
public:
    Descendants() = default;
    /// `leader` leads its session and has not been reaped yet.
    explicit Descendants(pid_t leader);

    void add(Descendants others);
    bool isEmpty() const { return m_handles.empty(); }
    void signal(int signal) const;
    /// Waits until all have ended; false when the time passed or `interrupting` (-1 for none)
    /// became readable before.
    bool waitUntil(std::chrono::steady_clock::time_point end, int interrupting = -1);

private:
    std::vector<FileDescriptor> m_handles;
};

} // namespace clipwren
