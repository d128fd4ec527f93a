#pragma once

#include "core/library/DownloadRecord.h"
#include "core/media/FfmpegService.h"

#include <QList>
#include <QString>

#include <optional>
#include <stop_token>

namespace clipwren {

/// Cuts or converts a download, and gives the new file a unique name.
///
/// Every clip of a video would be called "Talk — trimmed". The second becomes "Talk — trimmed 2",
/// so that no record points at another clip and no playable file is replaced, except by the same
/// clip made again.
struct Conversion {
    FfmpegService ffmpeg;
    QString input; ///< absolute path of the download
    EncodeProfile profile;
    std::optional<TrimRange> trim;
    QString sourceURL; ///< of the video's page
    QList<DownloadRecord> records; ///< of all saved files, of any video

    struct Result {
        QString filePath;
        std::optional<TrimRange> trim; ///< the range that the file actually holds
    };

    /// Blocks. Throws what `FfmpegService::transcode` throws, and `Error` when the video has
    /// nothing in the range; an earlier file stays then.
    Result run(const FfmpegService::FractionHandler &onProgress, const std::stop_token &stop) const;

private:
    using Lengths = FfmpegService::Lengths;
    using Range = std::optional<TrimRange>;

    std::optional<Lengths> lengths(const QString &path, const std::stop_token &stop) const;
    QString suffix(const Range &range, const std::stop_token &stop) const;
    bool mayWrite(const QString &path, const Range &range, const std::stop_token &stop) const;
    bool hasPictureOfInput(const QString &path, const std::stop_token &stop) const;
};

} // namespace clipwren
