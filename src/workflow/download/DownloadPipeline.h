#pragma once

#include "core/tasks/BackgroundTask.h"
#include "platform/desktop/Desktop.h"
#include "workflow/download/Conversion.h"
#include "workflow/download/VerifiedDownload.h"
#include "workflow/download/VideoLock.h"

#include <QObject>
#include <QString>
#include <QUuid>

#include <functional>
#include <memory>
#include <optional>

namespace clipwren {

class DownloadStore;
class HistoryStore;

/// From an address to the recorded file: download, decide what has to follow, cut or convert,
/// record. The desktop is told of progress and end.
///
/// Lives on the user-interface thread, which no step blocks. One job at a time. Destroying the
/// pipeline stops the running tool and silences it. No two processes save one video at a time.
class DownloadPipeline : public QObject {
    Q_OBJECT

public:
    /// What is fixed when the download starts.
    struct Job {
        VerifiedDownload download;
        QString effectiveTitle; ///< may be empty
        QString shownFormat; ///< tells downloads of one video apart, as in "1080p H.264"
        /// Records that the store does not hold; may be absent. Asked when a file is about to be
        /// written or removed.
        std::function<QList<DownloadRecord>()> otherRecords;
        /// Asked once, when the download is there: the range to keep, if any.
        std::function<std::optional<TrimRange>()> trimToApply;
    };

    /// What is given must outlive this.
    DownloadPipeline(DownloadStore &store, HistoryStore &history, Desktop &desktop);

    /// After any number of `progressed`, and of `processing` at most one, exactly one of `recorded`
    /// and `failed` follows as the last thing.
    void start(const Job &job);
    /// Asks the running tool to stop; `failed` follows.
    void cancel();
    /// Stops the running tool. Nothing follows.
    void drop();

    /// Of the running step. It stays, as the heading does, when the job failed.
    const DownloadProgress &progress() const { return m_progress; }
    /// What the running step does.
    QString heading() const { return m_heading; }
    /// One sentence for the user when the latest job failed, also when it was cancelled.
    std::optional<QString> errorMessage() const { return m_errorMessage; }
    /// What the tool wrote when the latest job failed; absent when it was cancelled. Without a tool
    /// its text is the failure's own.
    std::optional<ToolLog> errorLog() const { return m_errorLog; }
    void dismissErrorMessage();
    /// Forgets how far the latest job came and how it failed.
    void clear();

Q_SIGNALS:
    void progressed();
    /// The file is going to be cut or converted.
    void processing();
    void recorded(const QUuid &recordId);
    void failed();

private:
    /// The file, and the lock of its video, shared with the background work so that neither
    /// releases it while the other still writes.
    struct Downloaded {
        QString filePath;
        std::shared_ptr<VideoLock> lock;
        QStringList
            leftovers; ///< the download, unless it is the user's, and those of earlier attempts
    };

    /// Blocks. On the background thread.
    std::shared_ptr<VideoLock> acquireLock(const VerifiedDownload &download,
                                           const BackgroundTask::Post &post,
                                           const std::stop_token &stop);
    void decide(const QString &downloaded);
    void process(const QString &downloaded, const EncodeProfile &profile,
                 const std::optional<TrimRange> &trim);
    QList<DownloadRecord> otherRecords() const;
    bool isRecorded(const QString &filePath) const;
    void removeIntermediates(const QString &finalPath);
    void record(const QString &filePath, const std::optional<TrimRange> &trim);
    void fail(const std::exception_ptr &error);
    void setStage(const QString &heading, const QString &status);
    void setProgress(const DownloadProgress &progress);

    DownloadStore &m_store;
    HistoryStore &m_history;
    Desktop &m_desktop;
    std::unique_ptr<Desktop::Activity> m_activity; ///< while a job runs
    Job m_job;
    DownloadProgress m_progress;
    QString m_heading;
    std::optional<QString> m_errorMessage;
    std::optional<ToolLog> m_errorLog;
    bool m_cancelled = false;
    std::shared_ptr<VideoLock> m_lock; ///< until the record is stored
    QStringList m_leftovers;
    BackgroundTask m_step;
};

} // namespace clipwren
