#pragma once

#include "core/formats/OutputFormat.h"
#include "core/media/FfmpegService.h"
#include "core/ytdlp/VideoInfo.h"
#include "core/ytdlp/YtDlpService.h"

#include <QString>

#include <functional>
#include <optional>
#include <stop_token>

namespace clipwren {

/// A download that gives what the chosen format promises.
///
/// The tool counts a download as done when a file of that name is there, whatever is in it, so
/// that another format of the same video would silently give the earlier file. Such a file is
/// looked into, and where it is not what was asked for, the download is made again under the next
/// free title ("Talk 2", "Talk 3"), unless one of those before is that file already. So the tool
/// runs at most twice.
struct PromisedDownload {
    YtDlpService downloader;
    FfmpegService inspector;
    QString address;
    QString outputDirectory;
    OutputFormat format = OutputFormat::bestResolution;
    std::optional<QString> customTitle;
    std::optional<VideoInfo> info;

    struct Result {
        QString filePath;
        bool wasThereBefore = false; ///< the download found the file complete and left it alone
    };

    /// Blocks. Throws what `YtDlpService::download` throws.
    Result run(const YtDlpService::ProgressHandler &onProgress, const std::stop_token &stop) const;

private:
    /// Whether the file that is there can stand for the download.
    bool fits(const QString &filePath, const std::stop_token &stop) const;
};

} // namespace clipwren
