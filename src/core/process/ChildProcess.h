#pragma once

#include "core/process/Descendants.h"
#include "core/process/ExitNotifier.h"
#include "core/process/FileDescriptor.h"

#include <chrono>
#include <optional>
#include <sys/types.h>

namespace clipwren {

namespace ProcessRunner {
struct Command;
}

/// One started program that has not been reaped yet, with the read ends of its two outputs.
///
/// Used by one thread at a time. Destroying it while the program still runs kills the program.
class ChildProcess {
public:
    /// How the program ended.
    struct Exit {
        int status = 0; ///< the exit status, or the number of the signal
        bool bySignal = false;
    };

    /// Starts the program. Throws `std::system_error` when it cannot be started.
    explicit ChildProcess(const ProcessRunner::Command &command);
    ChildProcess(ChildProcess &&other) noexcept;
    ChildProcess &operator=(ChildProcess &&) = delete;
    ~ChildProcess();

    int exitDescriptor() const { return m_exitNotifier.descriptor(); }
    FileDescriptor &standardOutput() { return m_standardOutput; }
    FileDescriptor &standardError() { return m_standardError; }

    /// Sends the signal to the program and to what it started itself. Never reaches a process
    /// other than those: the program keeps its number until it is reaped here.
    void signalAll(int signal);

    /// What it has started and what may still run, also after its own exit. Call before `reap`.
    Descendants takeDescendants();

    /// Waits for the exit and reaps the program. Throws `std::system_error` when how it ended
    /// cannot be learned.
    Exit reap();

private:
    struct Ends {
        Pipe output = Pipe::open();
        Pipe error = Pipe::open();
    };
    ChildProcess(const ProcessRunner::Command &command, Ends ends);

    pid_t m_process; ///< 0 once reaped
    ExitNotifier m_exitNotifier;
    Descendants m_signalled;
    FileDescriptor m_standardOutput;
    FileDescriptor m_standardError;
};

} // namespace clipwren
