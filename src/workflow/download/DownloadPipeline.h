#pragma once

#include "core/tasks/BackgroundTask.h"
#include "workflow/download/PromisedDownload.h"

#include <QString>

#include <functional>
#include <optional>

namespace clipwren {

/// From an address to the final file: download, decide what has to follow, cut or convert.
///
/// Lives on the user-interface thread, which no step blocks. One job at a time. Destroying the
/// pipeline stops the running tool and silences it.
class DownloadPipeline {
public:
    /// What is fixed when the download starts.
    struct Job {
        PromisedDownload download;
        QString effectiveTitle; ///< may be empty
    };
    struct Result {
        QString filePath; ///< absolute
        std::optional<TrimRange> trim; ///< what was cut, if anything
    };
    /// What the pipeline asks and tells. All are called on the user-interface thread; of the last
    /// two exactly one is, as the last thing.
    struct Events {
        /// `status` is empty while the file is cut or converted.
        std::function<void(double fraction, const QString &status)> progress;
        /// Asked once, when the download is there: the range to keep, if any.
        std::function<std::optional<TrimRange>()> trimToApply;
        /// The file is going to be cut or converted, under this heading.
        std::function<void(const QString &heading)> processing;
        /// Whether a record names this file. Such a file is never removed.
        std::function<bool(const QString &filePath)> isRecorded;
        std::function<void(const Result &result)> finished;
        /// One sentence for the user, also when it was cancelled.
        std::function<void(const QString &message)> failed;
    };

    void start(const Job &job, Events events);
    /// Asks the running tool to stop; `failed` follows.
    void cancel();
    /// Stops the running tool. Nothing follows.
    void drop();

private:
    void decide(const PromisedDownload::Result &downloaded);
    void process(const PromisedDownload::Result &downloaded, const EncodeProfile &profile,
                 const std::optional<TrimRange> &trim);
    void removeIntermediate(const PromisedDownload::Result &downloaded, const QString &finalPath);
    void fail(const std::exception_ptr &error);

    Job m_job;
    Events m_events;
    bool m_cancelled = false;
    BackgroundTask m_step;
};

} // namespace clipwren
