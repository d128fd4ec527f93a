#include "workflow/download/DownloadPipeline.h"

#include "core/Error.h"
#include "core/library/DownloadStore.h"
#include "core/library/HistoryStore.h"
#include "workflow/download/LeftoverDownload.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>

#include <algorithm>
#include <utility>

namespace clipwren {

using namespace Qt::StringLiterals;

namespace {

/// Throws `Error` unless the path is a non-empty file in the downloads folder. The folder, and a
/// file of the user's in it, may be symbolic links.
void checkReported(const QString &path, const QString &folder)
{
    const QFileInfo file(path);
    const auto refuse = [&](const QString &sentence) { throw Error(sentence.arg(path)); };
    if (file.isRelative() || !file.isFile())
        refuse(DownloadPipeline::tr("yt-dlp says that it saved “%1”, which is no file."));
    if (QFileInfo(file.path()).canonicalFilePath() != QFileInfo(folder).canonicalFilePath())
        refuse(DownloadPipeline::tr(
            "yt-dlp says that it saved “%1”, which is not in the downloads folder."));
    if (file.size() == 0)
        refuse(DownloadPipeline::tr("yt-dlp saved an empty file: “%1”."));
}

/// yt-dlp does not say why its ffmpeg failed. Adds that the disk is full where it is.
QString sentenceFor(const std::exception &failure, const QString &folder)
{
    constexpr qint64 almostNothing = 1'000'000;
    QString summary = errorSummary(failure);
    const qint64 bytesFree = QStorageInfo(folder).bytesAvailable();
    if (summary.endsWith("Conversion failed!"_L1) && bytesFree >= 0 && bytesFree < almostNothing)
        return DownloadPipeline::tr("%1 No space is left on the disk.").arg(summary);
    return summary;
}

/// Identifies the video: it has several addresses but one page.
QString videoOf(const VerifiedDownload &download)
{
    const QString page = download.info ? download.info->webpage_url.value_or(QString()) : QString();
    return page.isEmpty() ? download.address : page;
}

} // namespace

DownloadPipeline::DownloadPipeline(DownloadStore &store, HistoryStore &history, Desktop &desktop)
    : m_store(store), m_history(history), m_desktop(desktop)
{
}

void DownloadPipeline::start(const Job &job)
{
    m_job = job;
    m_job.download.records = m_store.records() + otherRecords();
    m_cancelled = false;
    dismissErrorMessage();
    m_progress = {.status = tr("Starting…")};
    m_heading = tr("Downloading");
    m_lock.reset();
    m_activity = m_desktop.beginActivity();
    m_step = BackgroundTask::start(
        [this, download = m_job.download, purpose = job.shownFormat + u'\n' + job.effectiveTitle](
            const std::stop_token &stop, const BackgroundTask::Post &post) {
            const auto lock = acquireLock(download, post, stop);
            const QString video = videoOf(download);
            QStringList leftovers = LeftoverDownload::find(download.outputDirectory, video);
            for (const QString &path : leftovers) {
                if (LeftoverDownload::isLeftoverFor(path, video, purpose))
                    return Downloaded{path, lock, leftovers};
            }
            const auto onProgress = [this, &post](const DownloadProgress &progress) {
                post([this, progress] { setProgress(progress); });
            };
            const VerifiedDownload::Result file = download.run(onProgress, stop);
            checkReported(file.filePath, download.outputDirectory);
            // An existing file belongs to the user, even when no record names it any more.
            if (!file.existedBefore) {
                LeftoverDownload::mark(file.filePath, video, purpose);
                leftovers.append(file.filePath);
            }
            return Downloaded{file.filePath, lock, leftovers};
        },
        [this](const Downloaded &downloaded) {
            m_lock = downloaded.lock;
            m_leftovers = downloaded.leftovers;
            decide(downloaded.filePath);
        },
        [this](const std::exception_ptr &error) { fail(error); });
}

std::shared_ptr<VideoLock> DownloadPipeline::acquireLock(const VerifiedDownload &download,
                                                         const BackgroundTask::Post &post,
                                                         const std::stop_token &stop)
{
    bool waited = false;
    const auto onWait = [&] {
        waited = true;
        post([this] {
            setStage(tr("Waiting"), tr("Another Clipwren is saving this video. Waiting…"));
        });
    };
    auto lock = VideoLock::acquire(download.outputDirectory, videoOf(download), onWait, stop);
    if (waited)
        post([this] { setStage(tr("Downloading"), tr("Starting…")); });
    return lock;
}

void DownloadPipeline::cancel()
{
    m_cancelled = true;
    m_step.cancel();
}

void DownloadPipeline::drop()
{
    m_step = BackgroundTask();
    m_lock.reset();
    m_activity.reset();
}

void DownloadPipeline::dismissErrorMessage()
{
    m_errorMessage.reset();
    m_errorLog.reset();
}

void DownloadPipeline::clear()
{
    m_lock.reset();
    dismissErrorMessage();
    m_progress = {};
}

void DownloadPipeline::decide(const QString &downloaded)
{
    const std::optional<TrimRange> trim = m_job.trimToApply();
    const OutputFormatTraits &format = traits(m_job.download.format);
    if (!trim && !format.conversion) {
        record(downloaded, std::nullopt);
        return;
    }
    // The request may have come after the download had ended, with no tool left to stop.
    if (m_cancelled) {
        fail(std::make_exception_ptr(CancellationError()));
        return;
    }
    m_progress = {};
    m_heading = format.conversion ? tr(format.conversionHeading) : tr("Trimming");
    Q_EMIT processing();
    process(downloaded, format.conversion.value_or(EncodeProfile::h264Mp4()), trim);
}

void DownloadPipeline::process(const QString &downloaded, const EncodeProfile &profile,
                               const std::optional<TrimRange> &trim)
{
    const VerifiedDownload &download = m_job.download;
    const Conversion conversion{download.inspector,
                                downloaded,
                                profile,
                                trim,
                                download.address,
                                m_store.records() + otherRecords()};
    m_step = BackgroundTask::start(
        [this, conversion, lock = m_lock](const std::stop_token &stop,
                                          const BackgroundTask::Post &post) mutable {
            // Held until the tool has ended, also when the job is dropped.
            const auto held = std::exchange(lock, nullptr);
            const auto onProgress = [this, &post](double fraction) {
                post([this, fraction] { setProgress({.fraction = fraction}); });
            };
            return conversion.run(onProgress, stop);
        },
        [this](const Conversion::Result &converted) { record(converted.filePath, converted.trim); },
        [this](const std::exception_ptr &error) { fail(error); });
}

QList<DownloadRecord> DownloadPipeline::otherRecords() const
{
    return m_job.otherRecords ? m_job.otherRecords() : QList<DownloadRecord>();
}

bool DownloadPipeline::isRecorded(const QString &filePath) const
{
    const auto namesIt = [&](const DownloadRecord &record) { return record.filePath == filePath; };
    // otherRecords() may read a whole library from the disk, so it comes last.
    return std::ranges::any_of(m_store.records(), namesIt)
        || std::ranges::any_of(otherRecords(), namesIt);
}

/// Removes the download and the leftovers of earlier attempts.
void DownloadPipeline::removeIntermediates(const QString &finalPath)
{
    for (const QString &path : m_leftovers) {
        // The tool may spell the same path differently.
        if (QFileInfo(path) == QFileInfo(finalPath))
            continue;
        if (isRecorded(path))
            LeftoverDownload::unmark(path);
        else
            QFile::remove(path);
    }
}

void DownloadPipeline::record(const QString &filePath, const std::optional<TrimRange> &trim)
{
    const VerifiedDownload &download = m_job.download;
    const QString &title = m_job.effectiveTitle;
    DownloadRecord record;
    record.id = QUuid::createUuid();
    record.title = title.isEmpty() ? QFileInfo(filePath).fileName() : title;
    record.sourceURL = download.address;
    record.filePath = filePath;
    record.createdAt = QDateTime::currentDateTimeUtc();
    if (download.info) {
        record.thumbnailURL = download.info->thumbnail;
        record.durationSeconds = download.info->duration;
    }
    if (trim) {
        record.trimStart = trim->start;
        record.trimEnd = trim->end;
    }
    // Before the file is the user's.
    LeftoverDownload::unmark(filePath);
    m_store.add(record);
    removeIntermediates(filePath);
    m_history.recordDownload(record.sourceURL, title, record.thumbnailURL, record.durationSeconds);
    m_progress = {.fraction = 1};
    m_activity.reset();
    m_desktop.notify({tr("Download complete"), record.title, record.filePath});
    Q_EMIT recorded(record.id);
}

void DownloadPipeline::fail(const std::exception_ptr &error)
{
    m_lock.reset();
    m_activity.reset();
    try {
        std::rethrow_exception(error);
    } catch (const CancellationError &cancellation) {
        m_errorMessage = cancellation.errorDescription();
    } catch (const std::exception &failure) {
        m_errorMessage = sentenceFor(failure, m_job.download.outputDirectory);
        m_errorLog = toolLogOf(failure);
        if (m_errorLog->text.isEmpty())
            m_errorLog->text = errorDescription(failure);
        m_desktop.notify({tr("Download failed"), *m_errorMessage});
    }
    Q_EMIT failed();
}

void DownloadPipeline::setStage(const QString &heading, const QString &status)
{
    m_heading = heading;
    setProgress({.status = status});
}

void DownloadPipeline::setProgress(const DownloadProgress &progress)
{
    m_progress = progress;
    if (m_activity)
        m_activity->setProgress(progress.fraction);
    Q_EMIT progressed();
}

} // namespace clipwren
