#pragma once

#include "core/formats/FormatOption.h"
#include "core/tasks/BackgroundTask.h"
#include "core/ytdlp/VideoInfo.h"
#include "workflow/ApplicationContext.h"
#include "workflow/download/DownloadPipeline.h"
#include "workflow/download/FileTitle.h"
#include "workflow/download/FormatChoice.h"
#include "workflow/download/OfferedFormats.h"
#include "workflow/download/PendingFetch.h"
#include "workflow/download/Phase.h"
#include "workflow/preview/PreviewPlayerController.h"

#include <QDate>
#include <QObject>
#include <QString>
#include <QUrl>
#include <QUuid>

#include <chrono>
#include <functional>
#include <optional>

namespace clipwren {

class DownloadStore;
class HistoryStore;
class Preferences;
class ToolEnvironment;

/// The state of one download, from the address to the recorded file, and its operations.
///
/// Lives on the user-interface thread. `changed()` follows every change of the state. A look-up or
/// download that was replaced, or whose view is gone, changes nothing any more; destroying the view
/// stops the running tool.
class DownloaderView : public QObject {
    Q_OBJECT

public:
    /// `onCompleted` gets the new record's id, as the last thing that a download does; it may
    /// delete the view with `deleteLater()`.
    explicit DownloaderView(const ApplicationContext &context,
                            std::function<void(QUuid)> onCompleted = {}, QObject *parent = nullptr);

    /// Looks up the pending request, if any, and from now on every later one.
    void acceptRequests();
    /// The view is no longer shown: stops tools and preview, and accepts no more requests.
    void leave();

    // The look-up.
    QString urlText() const { return m_urlText; }
    void setUrlText(const QString &text);
    Phase phase() const { return m_phase; }
    std::optional<VideoInfo> info() const { return m_info; }
    std::optional<QString> fetchError() const { return m_fetchError; }
    QString fetchStatus() const { return m_fetchStatus; }
    /// Whether the failure on screen, of a look-up or a download, came from yt-dlp.
    bool downloaderFailed() const;
    /// The hint to update yt-dlp, shown with such a failure when it is old; absent while its
    /// version is unknown.
    std::optional<QString> outdatedHint() const;
    /// The sentence, with that as a second line.
    QString withOutdatedHint(const QString &failure) const;
    QString fetchLog() const { return m_fetchLog; }
    QString lastAttemptedURL() const { return m_lastAttemptedURL; }
    bool showLogs() const { return m_showLogs; }
    /// Shows what the look-up wrote.
    void setShowLogs(bool show);
    /// What is shown while `showLogs()`.
    const ToolLog &shownLog() const { return m_shownLog; }

    /// Looks up the address field's text, or again the last address that was valid.
    void fetchInfo(bool retryingLast);
    /// Puts the clipboard's text into the address field and looks it up. Nothing without a text.
    void paste();
    void cancelFetch();
    /// The video is the right one.
    void confirm();
    /// Back to a blank address field.
    void resetAll();

    // The user's choices before the download.
    QString customTitle() const { return m_title.custom; }
    /// Replaces line breaks by blanks; truncates to `longestTitle`.
    void setCustomTitle(const QString &title);
    void resetCustomTitle() { setCustomTitle(m_title.original()); }
    /// The stored raw value of the output format, whatever it is.
    QString outputFormatRaw() const { return m_format.rawValue(); }
    void setOutputFormatRaw(const QString &rawValue);
    /// The selected option's format.
    OutputFormat outputFormat() const { return selectedOption().kind; }
    /// The formats that the video can be saved as, in display order.
    QList<FormatOption> formatOptions() const { return offeredFormats(m_info); }
    /// The stored format where this video offers it, else the first.
    FormatOption selectedOption() const { return m_format.selected(m_info); }
    /// The name that the file will get, with a placeholder for the video's identifier.
    QString filenamePreview() const { return m_title.fileName(outputFormat()); }

    // The range to keep, in seconds.
    bool trimEnabled() const { return m_trimEnabled; }
    void setTrimEnabled(bool enabled);
    double trimStart() const { return m_trimStart; }
    double trimEnd() const { return m_trimEnd; }
    /// Applies also to a video of unknown length, of which the screen shows no range.
    void setTrimRange(double start, double end);
    /// The whole video again, with the preview at its start.
    void resetTrim();

    PreviewPlayerController &preview() { return m_preview; }
    std::optional<QUrl> previewURL() const { return m_previewURL; }
    /// Makes players for single pictures of the preview's stream. May be empty.
    const MediaPlayerFactory &makeBackgroundPlayer() const
    {
        return m_context.makeBackgroundPlayer;
    }
    /// True while the preview's stream is looked up or loads.
    bool isPreviewLoading() const { return m_previewLookup.isRunning() || m_preview.isLoading(); }

    // The download.
    /// Starts it when the phase is `ready` and the tools are there, otherwise does nothing.
    void start();
    void cancelDownload() { m_pipeline.cancel(); }
    const DownloadProgress &progress() const { return m_pipeline.progress(); }
    double downloadProgress() const { return progress().fraction; }
    QString downloadStatus() const { return progress().status; }
    QString phaseLabel() const { return m_pipeline.heading(); }
    std::optional<QString> errorMessage() const { return m_pipeline.errorMessage(); }
    void dismissErrorMessage();
    /// Present with every message but that of a cancellation.
    std::optional<ToolLog> errorLog() const { return m_pipeline.errorLog(); }
    void showErrorLog();

Q_SIGNALS:
    void changed();

private:
    void acceptRequest();
    void startLookup(const QString &address);
    void lookupSucceeded(const QString &address, const YtDlpService::FetchedInfo &lookup);
    void lookupFailed(const std::exception_ptr &error);
    void loadPreview(const QString &address);
    void reloadPreview();
    void returnToInput();
    /// Both tools must be known.
    YtDlpService ytDlp() const;

    DownloadPipeline::Job downloadJob() const;
    std::optional<TrimRange> trimToApply(OutputFormat format) const;
    void downloadRecorded(const QUuid &recordId);
    void downloadFailed();

    ApplicationContext m_context;
    std::function<void(QUuid)> m_onCompleted;

    QString m_urlText;
    std::optional<VideoInfo> m_info; ///< its title in one line
    QString m_infoAddress; ///< of the video that `m_info` describes
    DownloadAttempts m_attempts; ///< of the video that was looked up
    Phase m_phase = Phase::input;
    std::optional<QString> m_fetchError;
    bool m_lookupFailed = false; ///< not set by an invalid address, for which no tool runs
    QString m_fetchStatus;
    QString m_fetchLog;
    QString m_lastAttemptedURL;
    FileTitle m_title;
    FormatChoice m_format;
    PreviewPlayerController m_preview;
    std::optional<QUrl> m_previewURL;
    bool m_showLogs = false;
    ToolLog m_shownLog;
    bool m_trimEnabled = false;
    double m_trimStart = 0;
    double m_trimEnd = 0;
    bool m_rangeIsOfThisVideo = false; ///< not of the previously looked-up one

    // Declared last, so that background work is destroyed before the members it reports to.
    BackgroundTask m_lookup;
    BackgroundTask m_previewLookup;
    DownloadPipeline m_pipeline;
};

} // namespace clipwren
