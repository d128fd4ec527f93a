#pragma once

#include <QString>

namespace clipwren {

/// The line of a tool's log that tells why it failed; empty for an empty log.
///
/// That is yt-dlp's last "ERROR:", or ffmpeg's line with a system error, otherwise the last line
/// that mentions a failure, or simply the last. At most 1000 characters of it.
QString decisiveLine(QStringView log);

} // namespace clipwren
