#include "workflow/download/DownloadPipeline.h"

#include <QFile>

#include <utility>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

} // namespace

void DownloadPipeline::start(const Job &job, Events events)
{
    m_job = job;
    m_cancelled = false;
    m_events = std::move(events);
    m_step = BackgroundTask::start(
        [this, download = job.download](const std::stop_token &stop,
                                        const BackgroundTask::Post &post) {
            const auto onProgress = [this, &post](double fraction, const QString &status) {
                post([this, fraction, status] { m_events.progress(fraction, status); });
            };
            return download.run(onProgress, stop);
        },
        [this](const PromisedDownload::Result &downloaded) { decide(downloaded); },
        [this](const std::exception_ptr &error) { fail(error); });
}

void DownloadPipeline::cancel()
{
    m_cancelled = true;
    m_step.cancel();
}

void DownloadPipeline::drop()
{
    m_step = BackgroundTask();
}

void DownloadPipeline::decide(const PromisedDownload::Result &downloaded)
{
    const std::optional<TrimRange> trim = m_events.trimToApply();
    const bool toProRes = m_job.download.format == OutputFormat::proRes422;
    if (!trim && !toProRes) {
        m_events.finished({downloaded.filePath, std::nullopt});
        return;
    }
    // The wish may have come when the download had just ended, with no tool left to stop.
    if (m_cancelled) {
        m_events.failed(CancellationError().errorDescription());
        return;
    }
    m_events.processing(toProRes ? u"Encoding to Apple ProRes 422"_s : u"Trimming"_s);
    process(downloaded, toProRes ? EncodeProfile::proRes422() : EncodeProfile::h264Mp4(), trim);
}

void DownloadPipeline::process(const PromisedDownload::Result &downloaded,
                               const EncodeProfile &profile, const std::optional<TrimRange> &trim)
{
    m_step = BackgroundTask::start(
        [this, ffmpeg = m_job.download.inspector, downloaded, profile,
         trim](const std::stop_token &stop, const BackgroundTask::Post &post) {
            const auto onProgress = [this, &post](double fraction) {
                post([this, fraction] { m_events.progress(fraction, QString()); });
            };
            return ffmpeg.transcode(downloaded.filePath, profile, trim,
                                    trim ? u"trimmed"_s : QString(), onProgress, stop);
        },
        [this, downloaded, trim](const QString &finalPath) {
            removeIntermediate(downloaded, finalPath);
            m_events.finished({finalPath, trim});
        },
        [this](const std::exception_ptr &error) { fail(error); });
}

void DownloadPipeline::removeIntermediate(const PromisedDownload::Result &downloaded,
                                          const QString &finalPath)
{
    // A file that was there before belongs to the user, whether or not a record still names it.
    if (finalPath == downloaded.filePath || downloaded.wasThereBefore
        || m_events.isRecorded(downloaded.filePath))
        return;
    QFile::remove(downloaded.filePath);
}

void DownloadPipeline::fail(const std::exception_ptr &error)
{
    try {
        std::rethrow_exception(error);
    } catch (const std::exception &exception) {
        // A cancellation describes itself in a word, too.
        m_events.failed(errorDescription(exception));
    }
}

} // namespace clipwren
