#pragma once

#include "core/process/FileDescriptor.h"

#include <sys/types.h>

namespace clipwren {

namespace ProcessRunner {
struct Command;
}

/// One started program that has not been reaped yet, with the read ends of its two outputs.
///
/// It leads a session and a process group of its own: a signal from a terminal reaches us alone,
/// and ours reach what it has started, too. It gets SIGINT when the thread that started it ends, so
/// also when we are killed: yt-dlp then ends the ffmpeg that it runs, which it leaves running on
/// SIGTERM.
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

    /// Becomes readable when the program has ended.
    int exitDescriptor() const { return m_exitDescriptor.get(); }
    FileDescriptor &standardOutput() { return m_standardOutput; }
    FileDescriptor &standardError() { return m_standardError; }

    /// Sends the signal to the program and to what it has started. Call before `reap`: until then
    /// the group's number belongs to nobody else.
    void signalGroup(int signal) const;

    /// Kills what the program left running, or the program itself, and waits for its exit. Throws
    /// `std::system_error` when how it ended cannot be learned.
    Exit reap();

private:
    struct Ends {
        Pipe output = Pipe::open();
        Pipe error = Pipe::open();
    };
    ChildProcess(const ProcessRunner::Command &command, Ends ends);

    pid_t m_process; ///< 0 once reaped
    FileDescriptor m_exitDescriptor; ///< a pidfd
    FileDescriptor m_standardOutput;
    FileDescriptor m_standardError;
};

} // namespace clipwren
