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

/// The attempts to download one video that were before, and failed or were cancelled.
struct DownloadAttempts {
    /// Names in the downloads folder before the first of them; absent when there was none.
    std::optional<QSet<QString>> filesBefore = std::nullopt;

    /// Another attempt is about to begin.
    void add(const QString &directory);
};

/// A download that gives what the chosen format promises.
///
/// The tool counts a download as done when a file of that name is there, whatever is in it: another
/// format of the same video, or what an interrupted conversion left. Such a file is looked into.
/// Where it is not what was asked for, the download is made again under the next free title
/// ("Talk 2", "Talk 3"), unless one of those is that file already. What an attempt before this one
/// left unfinished makes room. So the tool runs at most twice. Films stay where the sound of one is
/// saved.
struct PromisedDownload {
    YtDlpService downloader;
    FfmpegService inspector;
    QString address;
    QString outputDirectory;
    OutputFormat format = OutputFormat::bestResolution;
    std::optional<QString> customTitle = std::nullopt;
    std::optional<VideoInfo> info = std::nullopt;
    QList<DownloadRecord> records = {}; ///< of the files that were saved before, of any video
    DownloadAttempts earlier = {};
    QDateTime begun = QDateTime::currentDateTimeUtc(); ///< when the user asked for it

    struct Result {
        QString filePath;
        bool wasThereBefore = false; ///< the download found the file complete and left it alone
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
    void checkThatItPlays(const QString &filePath, const std::stop_token &stop) const;
    bool isWhole(const QString &filePath, const MediaInspection &file) const;
    bool isLeftover(const QString &filePath, const std::optional<MediaInspection> &file) const;
    bool isRecorded(const QString &filePath) const;
};

} // namespace clipwren
