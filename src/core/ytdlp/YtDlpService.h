#pragma once

#include "core/formats/OutputFormat.h"
#include "core/json/JsonObjectReader.h"
#include "core/process/ProcessRunner.h"
#include "core/ytdlp/DownloadProgress.h"
#include "core/ytdlp/VideoInfo.h"

#include <QUrl>

#include <chrono>
#include <functional>
#include <stop_token>

namespace clipwren {

/// Drives yt-dlp: looks a video up and downloads it.
///
/// Every operation runs the tool once and blocks the calling thread until it has ended; callbacks
/// come on that thread. A request to stop ends the tool, and the operation with it. Besides what is
/// named below, each throws what `ProcessRunner` throws. Nothing is tried again.
struct YtDlpService {
    QString binaryPath; ///< absolute path of yt-dlp
    QString ffmpegPath; ///< absolute path of ffmpeg, which a download merges and converts with
    std::chrono::milliseconds infoTimeout = std::chrono::seconds(60);
    std::chrono::milliseconds previewTimeout = std::chrono::seconds(25);

    /// The look-up ran but gave nothing to use.
    class FetchError : public Error {
    public:
        enum class Kind { emptyResponse, malformedJSON };

        static FetchError emptyResponse(const QString &log);
        static FetchError malformedJSON(const DecodingError &underlying, const QString &log);

        Kind kind() const { return m_kind; }
        /// All that the tool wrote to its standard error.
        QString log() const { return toolLog().text; }
        /// What was wrong with the document; only with `malformedJSON`.
        std::optional<DecodingError> underlying() const { return m_underlying; }

    private:
        FetchError(Kind kind, const QString &description, const QString &log);

        Kind m_kind;
        std::optional<DecodingError> m_underlying;
    };

    struct FetchedInfo {
        VideoInfo info;
        QString log; ///< all that the tool wrote to its standard error
    };

    using StatusHandler = std::function<void(const QString &line)>;
    /// `fraction` is that of the file the tool works on now; the tool may start again at 0.
    using ProgressHandler = std::function<void(const DownloadProgress &progress)>;

    /// Asks for the description of the video at `url`. `onStatus` gets each line of the tool's log
    /// without its leading "[tag]"; what is left may be empty.
    ///
    /// Throws `FetchError`, or `ProcessRunner::TimeoutError` after `infoTimeout`, when the tool has
    /// been stopped and is gone.
    FetchedInfo fetchInfo(const QString &url, const StatusHandler &onStatus,
                          const std::stop_token &stop = {}) const;

    /// Asks for the address of a stream that a player can open; absent when the tool names none.
    /// Throws `ProcessRunner::TimeoutError` after `previewTimeout`.
    std::optional<QUrl> fetchPreviewURL(const QString &url, const std::stop_token &stop = {}) const;

    /// Saves the video in `outputDirectory`, which is created when absent, and returns the absolute
    /// path of the file. `customFilename` is a title as the user typed it; the site's title stands
    /// in for an absent or empty one. Files that a failed or stopped download leaves stay there.
    ///
    /// Throws `std::system_error` when the folder cannot be created, `ClipwrenError` with
    /// `NoOutputPath` when the tool does not say where the file is.
    QString download(const QString &url, const QString &outputDirectory, OutputFormat format,
                     const std::optional<QString> &customFilename,
                     const ProgressHandler &onProgress, const std::stop_token &stop = {}) const;

    /// Turns a title into the stem of a file name, as part of the tool's output template: a "%"
    /// comes out doubled. At most 180 characters as people see them; never empty.
    static QString sanitizeFilename(const QString &title);

private:
    /// Every run with an address: an option for all of them belongs here.
    ProcessRunner::Command command(const QStringList &options, const QString &url) const;
};

} // namespace clipwren
