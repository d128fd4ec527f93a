#pragma once

#include <concepts>
#include <mutex>
#include <utility>

namespace clipwren {

/// A value that several threads share, guarded by a lock of its own.
///
/// The lock is held for one copy, change or test at a time and never while a callback of
/// somebody else runs.
template <typename Value> class Mutex {
public:
    Mutex() = default;
    explicit Mutex(Value value) : m_value(std::move(value)) { }
    Mutex(const Mutex &) = delete;
    Mutex &operator=(const Mutex &) = delete;

    Value copy() const
    {
        const std::lock_guard lock(m_lock);
        return m_value;
    }

    void replace(Value value)
    {
        const std::lock_guard lock(m_lock);
        m_value = std::move(value);
    }

    /// Runs `change` on the value as one step, and returns what it returns.
    template <typename Change> auto apply(Change change)
    {
        const std::lock_guard lock(m_lock);
        return change(m_value);
    }

    /// Sets the flag and says whether it had been set before, as one step.
    bool testAndSet() requires std::same_as<Value, bool>
    {
        const std::lock_guard lock(m_lock);
        return std::exchange(m_value, true);
    }

private:
    mutable std::mutex m_lock;
    Value m_value{};
};

} // namespace clipwren
