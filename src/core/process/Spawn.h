#pragma once

#include "core/process/FileDescriptor.h"

#include <sys/types.h>

namespace clipwren {

namespace ProcessRunner {
struct Command;
}

/// Starts the program with the two write ends as its outputs. Throws `std::system_error` when it
/// cannot be started.
///
/// It leads a session of its own: a signal from a terminal reaches us alone, and no terminal stops
/// it. On Linux it gets SIGINT when the calling thread ends, so also when we are killed: yt-dlp
/// then ends the ffmpeg that it runs, which it leaves running on SIGTERM.
pid_t spawn(const ProcessRunner::Command &command, const Pipe &output, const Pipe &error);

} // namespace clipwren
