#pragma once

#include "core/media/EncodeProfile.h"
#include "core/media/MediaInspection.h"
#include "core/media/TrimRange.h"

#include <functional>
#include <stop_token>

namespace clipwren {

/// Inspects media files with ffprobe, cuts and converts them with ffmpeg.
///
/// Every operation blocks the calling thread until its tool has ended; callbacks come on that
/// thread. Paths are absolute. Besides what is named below, each throws what `ProcessRunner`
/// throws.
struct FfmpegService {
    QString ffmpegPath;
    QString ffprobePath;

    /// Between 0 and 1. Need not increase.
    using FractionHandler = std::function<void(double fraction)>;

    /// Checks the file that a conversion wrote; what it throws becomes the outcome.
    using OutputCheck = std::function<void(const QString &path)>;

    /// Durations in seconds; absent without such a stream or when ffprobe does not know.
    struct Lengths {
        bool hasPicture = false; ///< a video stream, not a cover image
        std::optional<double> picture = std::nullopt;
        std::optional<double> whole = std::nullopt; ///< of the longest track
    };

    /// Throws `ClipwrenError` with `EmptyProbeOutput`, or `DecodingError` when the report cannot be
    /// read.
    MediaInspection inspect(const QString &path, const std::stop_token &stop = {}) const;

    /// Seconds; 0 when ffprobe does not know.
    double duration(const QString &path, const std::stop_token &stop = {}) const;

    /// Throws `DecodingError` when the report cannot be read.
    Lengths lengths(const QString &path, const std::stop_token &stop = {}) const;

    /// The path that `transcode` would write to now.
    static QString outputPath(const QString &input, const QString &ext, const QString &suffix);

    /// Writes the file, or the part of it that `trim` names, anew beside it and returns the new
    /// file's path: the input's name with " — " and the suffix, which may be empty, and the
    /// profile's extension. A file of that name is replaced, but never the input: then the next
    /// free name is taken, as in "Talk 2.mov".
    ///
    /// Nothing is replaced and no half-written file stays when this throws: `CancellationError`
    /// after a request to stop, `std::system_error` when the file to replace cannot be moved, what
    /// `check` throws of the whole file before it replaces another.
    QString transcode(const QString &input, const EncodeProfile &profile,
                      const std::optional<TrimRange> &trim, const QString &suffix,
                      const FractionHandler &onProgress, const OutputCheck &check = {},
                      const std::stop_token &stop = {}) const;
};

} // namespace clipwren
