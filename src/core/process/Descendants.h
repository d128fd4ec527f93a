#pragma once

#include "core/process/FileDescriptor.h"

#include <sys/types.h>
#include <vector>

namespace clipwren {

/// The processes that `ancestor` has started so far, directly or through others, without itself.
///
/// Held by handles, so a signal never reaches a process that took over one of their numbers.
/// Always empty on systems without /proc.
class Descendants {
public:
    explicit Descendants(pid_t ancestor);

    void signal(int signal) const;

private:
    std::vector<FileDescriptor> m_handles;
};

} // namespace clipwren
