#pragma once

#include <mutex>

namespace clipwren {

/// A value that several threads share, guarded by a lock of its own.
///
/// The lock is held for one change at a time and never while a callback of somebody else runs.
template <typename Value> class Mutex {
public:
    /// Runs `change` on the value as one step, and returns what it returns.
    template <typename Change> auto apply(Change change)
    {
        const std::lock_guard lock(m_lock);
        return change(m_value);
    }

private:
    std::mutex m_lock;
    Value m_value{};
};

} // namespace clipwren
