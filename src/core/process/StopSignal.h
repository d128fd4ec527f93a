#pragma once

#include "core/process/FileDescriptor.h"

#include <functional>
#include <optional>
#include <stop_token>

namespace clipwren {

/// A descriptor that becomes readable when a stop is requested, for a thread that waits in poll().
class StopSignal {
public:
    /// Throws `std::system_error`.
    explicit StopSignal(const std::stop_token &stop)
    {
        if (!stop.stop_possible())
            return;
        m_pipe = Pipe::open();
        // Closing the write end makes the read end readable.
        m_callback.emplace(stop, [this] { m_pipe.writeEnd.close(); });
    }

    /// -1 when no stop can ever be requested.
    int descriptor() const { return m_pipe.readEnd.get(); }

private:
    Pipe m_pipe;
    // Declared last: its destructor waits for a callback that is running.
    std::optional<std::stop_callback<std::function<void()>>> m_callback;
};

} // namespace clipwren
