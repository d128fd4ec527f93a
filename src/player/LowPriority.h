#pragma once

#include <sys/resource.h>

namespace clipwren {

/// Lets the calling thread, and those that it starts from now on, run only when others leave the
/// processor to them.
inline void lowerThreadPriority()
{
    // Linux gives each thread a niceness of its own; 0 is the calling one.
    constexpr int niceness = 10;
    ::setpriority(PRIO_PROCESS, 0, niceness);
}

} // namespace clipwren
