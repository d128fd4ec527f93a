#pragma once

#include "core/formats/OutputFormat.h"
#include "core/library/DownloadRecord.h"
#include "core/media/FfmpegService.h"
#include "core/media/OutputFile.h"
#include "core/ytdlp/VideoInfo.h"
#include "core/ytdlp/YtDlpService.h"

#include <QDateTime>
#include <QList>
#include <QSet>
#include <QString>

#include <functional>
#include <list>
#include <optional>
#include <stop_token>

namespace clipwren {

/// Earlier attempts to download one video, which failed or were cancelled.
struct DownloadAttempts {
    /// File names in the downloads folder before the first attempt; absent before that.
    std::optional<QSet<QString>> filesBefore = std::nullopt;

    void add(const QString &directory);
};

/// A download whose file is verified to be complete and of the chosen format.
///
/// yt-dlp skips a download when a file of that name exists, whatever is in it: another format of
/// the same video, or a partial file of an interrupted conversion. So an existing file is
/// inspected. Where it is not what was asked for, the download runs again under the next free title
/// ("Talk 2", "Talk 3"), unless one of those is that file already. A partial file of an earlier
/// attempt is removed. The tool runs at most twice. Saving the sound of a video keeps its films.
struct VerifiedDownload {
    YtDlpService downloader;
    FfmpegService inspector;
    QString address;
    QString outputDirectory;
    OutputFormat format = OutputFormat::bestResolution;
    std::optional<QString> customTitle = std::nullopt;
    std::optional<VideoInfo> info = std::nullopt;
    QList<DownloadRecord> records = {}; ///< of all saved files, of any video
    DownloadAttempts earlier = {};
    QDateTime startedAt = QDateTime::currentDateTimeUtc(); ///< when the user asked for it

    struct Result {
        QString filePath;
        bool existedBefore = false; ///< the download found the file complete and skipped it
    };

    /// Blocks. Throws what `YtDlpService::download` throws, and `Error` for a new file that does
    /// not play.
    Result run(const YtDlpService::ProgressHandler &onProgress, const std::stop_token &stop) const;

private:
    Result downloadAs(const std::optional<QString> &title,
                      const YtDlpService::ProgressHandler &onProgress,
                      const std::stop_token &stop) const;
    std::list<KeptFile> keptFilms(const std::optional<QString> &title,
                                  const std::stop_token &stop) const;
    bool isFilm(const QString &filePath, const std::stop_token &stop) const;
    void checkPlayable(const QString &filePath, const std::stop_token &stop) const;
    bool isComplete(const QString &filePath, const MediaInspection &file) const;
    bool isLeftover(const QString &filePath, const std::optional<MediaInspection> &file) const;
    bool isRecorded(const QString &filePath) const;
};

} // namespace clipwren
