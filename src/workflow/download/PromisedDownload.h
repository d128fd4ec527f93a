#pragma once

#include "core/formats/OutputFormat.h"
#include "core/library/DownloadRecord.h"
#include "core/media/FfmpegService.h"
#include "core/ytdlp/VideoInfo.h"
#include "core/ytdlp/YtDlpService.h"

#include <QHash>
#include <QList>
#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <stop_token>

namespace clipwren {

/// Tells a file that was left alone from one that was written again.
struct FileIdentity {
    quint64 number;
    qint64 changedMilliseconds; ///< since 1970; a change of the file's name or owner counts, too
    bool operator==(const FileIdentity &) const = default;
};

/// What the attempts to download one video left, so that the next attempt knows it. They come one
/// after the other.
struct DownloadAttempts {
    /// The names in the folder before the first attempt.
    std::optional<QHash<QString, FileIdentity>> filesBefore;
    QHash<QString, FileIdentity> finished; ///< by path
};

/// A download that gives what the chosen format promises.
///
/// The tool counts a download as done when a file of that name is there, whatever is in it: another
/// format of the same video, or what an interrupted conversion left. Such a file is looked into.
/// Where it is not what was asked for, the download is made again under the next free title
/// ("Talk 2", "Talk 3"), unless one of those is that file already. What an attempt before this one
/// left unfinished makes room. So the tool runs at most twice.
struct PromisedDownload {
    YtDlpService downloader;
    FfmpegService inspector;
    QString address;
    QString outputDirectory;
    OutputFormat format = OutputFormat::bestResolution;
    std::optional<QString> customTitle;
    std::optional<VideoInfo> info;
    QList<DownloadRecord> records; ///< of the files that were saved before
    std::shared_ptr<DownloadAttempts> attempts = std::make_shared<DownloadAttempts>();

    struct Result {
        QString filePath;
        bool wasThereBefore = false; ///< the download found the file complete and left it alone
    };

    /// Blocks. Throws what `YtDlpService::download` throws.
    Result run(const YtDlpService::ProgressHandler &onProgress, const std::stop_token &stop) const;

private:
    Result downloadAs(const std::optional<QString> &title,
                      const YtDlpService::ProgressHandler &onProgress,
                      const std::stop_token &stop) const;
    bool isLeftover(const QString &filePath) const;
    bool isWhole(const QString &filePath, const MediaInspection &file) const;
    bool isFinishedByUs(const QString &filePath) const;
};

} // namespace clipwren
