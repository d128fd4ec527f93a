#pragma once

#include <QString>

#include <optional>

namespace clipwren {

/// How far a download, or the conversion after it, is.
struct DownloadProgress {
    double fraction = 0; ///< 0 or more, 1 at the end of each file; not clamped
    QString status = {}; ///< what is known beside, as in "1.20MiB/s · 00:10"; may be empty

    bool operator==(const DownloadProgress &) const = default;

    /// Reads a line that follows `progressTemplate`. Any other line gives nothing, and so does one
    /// without a percentage.
    static std::optional<DownloadProgress> fromLine(QStringView line);

    /// The argument that makes the tool print such lines.
    static QString progressTemplate();
};

/// The path in the line by which the tool names the finished file, as it stands there; nothing for
/// other lines.
std::optional<QString> reportedPath(QStringView line);

} // namespace clipwren
