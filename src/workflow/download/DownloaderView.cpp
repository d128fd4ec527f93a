#include "workflow/download/DownloaderView.h"

#include "core/Logging.h"
#include "core/process/ToolEnvironment.h"
#include "core/text/BoundedText.h"
#include "core/text/SingleLine.h"
#include "core/ytdlp/DownloaderAge.h"
#include "workflow/download/FetchErrorText.h"

#include <utility>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

/// QUrl lowers the scheme, so the typed text is checked.
bool isWebAddress(const QString &text)
{
    return (text.startsWith("http:"_L1) || text.startsWith("https:"_L1))
        && QUrl(text, QUrl::StrictMode).isValid() && !QUrl(text, QUrl::StrictMode).host().isEmpty();
}

} // namespace

DownloaderView::DownloaderView(const ApplicationContext &context,
                               std::function<void(QUuid)> onCompleted, QObject *parent)
    : QObject(parent), m_context(context), m_onCompleted(std::move(onCompleted)),
      m_format(context.preferences, context.format), m_preview(context.makePlayer),
      m_pipeline(context.store, context.history, context.desktop)
{
    // A version that arrives later may add the hint on an outdated yt-dlp.
    connect(&context.tools, &ToolEnvironment::changed, this, &DownloaderView::changed);
    connect(&m_pipeline, &DownloadPipeline::progressed, this, &DownloaderView::changed);
    connect(&m_pipeline, &DownloadPipeline::processing, this, [this] {
        m_phase = Phase::processing;
        Q_EMIT changed();
    });
    connect(&m_pipeline, &DownloadPipeline::recorded, this, &DownloaderView::downloadRecorded);
    connect(&m_pipeline, &DownloadPipeline::failed, this, &DownloaderView::downloadFailed);
}

// Requests from outside

void DownloaderView::acceptRequests()
{
    connect(&m_context.pendingFetch, &PendingFetchBox::changed, this,
            &DownloaderView::acceptRequest);
    acceptRequest();
}

void DownloaderView::leave()
{
    m_context.pendingFetch.disconnect(this);
    m_lookup = BackgroundTask();
    m_previewLookup = BackgroundTask();
    m_pipeline.drop();
    m_preview.unload();
}

void DownloaderView::acceptRequest()
{
    const std::optional<PendingFetch> request = m_context.pendingFetch.take();
    if (!request)
        return;
    m_urlText = request->url;
    fetchInfo(false);
}

// The look-up

void DownloaderView::setUrlText(const QString &text)
{
    m_urlText = text;
    Q_EMIT changed();
}

void DownloaderView::fetchInfo(bool retryingLast)
{
    m_lookup.cancel();
    m_pipeline.cancel();
    m_fetchError.reset();
    m_lookupFailed = false;
    m_fetchStatus.clear();
    // The error and the open log of an earlier download do not concern this one.
    m_pipeline.dismissErrorMessage();
    m_showLogs = false;
    const QString address = (retryingLast ? m_lastAttemptedURL : m_urlText).trimmed();
    if (address.isEmpty() || !isWebAddress(address)) {
        if (!address.isEmpty()) {
            m_fetchError = tr("Enter a valid http(s) URL");
            // No tool ran for this address, so there is no log.
            m_fetchLog.clear();
        }
        returnToInput();
        return;
    }
    if (retryingLast)
        m_urlText = address;
    m_lastAttemptedURL = address;
    if (m_context.tools.ytDlpPath() && m_context.tools.ffmpegPath())
        startLookup(address);
    Q_EMIT changed();
}

void DownloaderView::returnToInput()
{
    // Silences the cancelled look-up.
    m_lookup = BackgroundTask();
    m_pipeline.drop();
    m_phase = Phase::input;
    Q_EMIT changed();
}

void DownloaderView::startLookup(const QString &address)
{
    m_pipeline.drop();
    // The previous video must not stay on screen when this one has no preview.
    m_previewLookup = BackgroundTask();
    m_preview.unload();
    m_previewURL.reset();
    m_phase = Phase::fetching;
    m_info.reset();
    m_title.site.reset();
    constexpr qsizetype longestStatus = 1'000;
    m_lookup = BackgroundTask::start(
        [this, service = ytDlp(), address](const std::stop_token &stop,
                                           const BackgroundTask::Post &post) {
            const auto onStatus = [this, &post](const QString &line) {
                post([this, status = boundedText(line, longestStatus)] {
                    m_fetchStatus = status;
                    Q_EMIT changed();
                });
            };
            return service.fetchInfo(address, onStatus, stop);
        },
        [this, address](const YtDlpService::FetchedInfo &lookup) {
            lookupSucceeded(address, lookup);
        },
        [this](const std::exception_ptr &error) { lookupFailed(error); });
}

void DownloaderView::lookupSucceeded(const QString &address,
                                     const YtDlpService::FetchedInfo &lookup)
{
    // "Cancel" was pressed while the result was being posted.
    if (m_phase != Phase::fetching)
        return;
    m_info = lookup.info;
    m_infoAddress = address;
    m_title.site = m_info->title;
    m_title.custom = m_title.original();
    if (m_info->title)
        m_info->title = m_title.original();
    m_attempts = {};
    m_fetchLog = lookup.log;
    m_fetchStatus.clear();
    m_rangeIsOfThisVideo = m_info->duration.has_value();
    if (m_info->duration) {
        m_trimStart = 0;
        m_trimEnd = *m_info->duration;
    }
    m_phase = Phase::confirming;
    loadPreview(address);
    Q_EMIT changed();
}

void DownloaderView::lookupFailed(const std::exception_ptr &error)
{
    m_fetchStatus.clear();
    try {
        std::rethrow_exception(error);
    } catch (const CancellationError &) {
        if (m_phase == Phase::fetching)
            m_phase = Phase::input;
    } catch (const std::exception &failure) {
        if (m_phase == Phase::fetching) {
            m_fetchError = friendlyFetchError(failure);
            m_lookupFailed = true;
            m_fetchLog = toolLogOf(failure).text;
            m_phase = Phase::input;
        }
    }
    Q_EMIT changed();
}

bool DownloaderView::downloaderFailed() const
{
    const std::optional<ToolLog> downloadLog = m_pipeline.errorLog();
    return (m_fetchError && m_lookupFailed) || (downloadLog && downloadLog->tool == "yt-dlp"_L1);
}

std::optional<QString> DownloaderView::outdatedHint() const
{
    const ToolEnvironment &tools = m_context.tools;
    if (!downloaderFailed() || !tools.ytDlpPath() || !tools.ytDlpVersion())
        return std::nullopt;
    return clipwren::outdatedHint(*tools.ytDlpPath(), *tools.ytDlpVersion(), m_context.today());
}

QString DownloaderView::withOutdatedHint(const QString &failure) const
{
    const std::optional<QString> hint = outdatedHint();
    return hint ? failure + u'\n' + *hint : failure;
}

void DownloaderView::loadPreview(const QString &address)
{
    const ToolEnvironment &tools = m_context.tools;
    if (!tools.ytDlpPath() || !tools.ffmpegPath() || !m_context.makePlayer)
        return;
    m_previewLookup = BackgroundTask::start(
        [service = ytDlp(), address](const std::stop_token &stop, const BackgroundTask::Post &) {
            return service.fetchPreviewURL(address, stop);
        },
        [this](const std::optional<QUrl> &url) {
            m_previewURL = url;
            reloadPreview();
            Q_EMIT changed();
        },
        // Without a stream the preview stays unavailable; that is no failure for the user.
        [this](const std::exception_ptr &) {
            qCDebug(playerLog) << "No stream for the preview";
            Q_EMIT changed();
        });
}

void DownloaderView::reloadPreview()
{
    // No preview during a download: it would take bandwidth from it.
    if (m_previewURL && (m_phase == Phase::confirming || m_phase == Phase::ready))
        m_preview.load(*m_previewURL);
}

YtDlpService DownloaderView::ytDlp() const
{
    return {*m_context.tools.ytDlpPath(), *m_context.tools.ffmpegPath(), m_context.infoTimeout};
}

void DownloaderView::paste()
{
    const QString text = m_context.desktop.clipboardText();
    if (text.isEmpty() || isBusy(m_phase))
        return;
    m_urlText = text;
    fetchInfo(false);
}

void DownloaderView::cancelFetch()
{
    if (m_phase != Phase::fetching)
        return;
    m_lookup.cancel();
    m_phase = Phase::input;
    Q_EMIT changed();
}

void DownloaderView::confirm()
{
    if (m_phase != Phase::confirming)
        return;
    m_phase = Phase::ready;
    Q_EMIT changed();
}

void DownloaderView::resetAll()
{
    m_previewLookup = BackgroundTask();
    m_preview.unload();
    m_previewURL.reset();
    m_urlText.clear();
    m_info.reset();
    m_title.site.reset();
    m_fetchError.reset();
    m_trimEnabled = false;
    m_trimStart = 0;
    m_trimEnd = 0;
    m_pipeline.clear();
    returnToInput();
}

void DownloaderView::setShowLogs(bool show)
{
    m_showLogs = show;
    m_shownLog = {u"yt-dlp"_s, m_fetchLog};
    Q_EMIT changed();
}

// The user's choices before the download

void DownloaderView::setCustomTitle(const QString &title)
{
    m_title.custom = boundedText(singleLine(title), longestTitle);
    Q_EMIT changed();
}

void DownloaderView::setOutputFormatRaw(const QString &rawValue)
{
    m_format.setRawValue(rawValue);
    Q_EMIT changed();
}

void DownloaderView::setTrimEnabled(bool enabled)
{
    m_trimEnabled = enabled;
    Q_EMIT changed();
}

void DownloaderView::setTrimRange(double start, double end)
{
    m_trimStart = start;
    m_trimEnd = end;
    m_rangeIsOfThisVideo = true;
    Q_EMIT changed();
}

void DownloaderView::resetTrim()
{
    setTrimRange(0, m_info ? m_info->duration.value_or(0) : 0);
    m_preview.seek(0);
}

// The download

void DownloaderView::start()
{
    if (!m_context.tools.allFound() || m_phase != Phase::ready)
        return;
    m_phase = Phase::downloading;
    m_preview.unload();
    const DownloadPipeline::Job job = downloadJob();
    m_attempts.add(m_context.downloadDirectory);
    m_pipeline.start(job);
    Q_EMIT changed();
}

DownloadPipeline::Job DownloaderView::downloadJob() const
{
    const ToolEnvironment &tools = m_context.tools;
    DownloadPipeline::Job job;
    job.effectiveTitle = m_title.effective();
    job.shownFormat = selectedOption().title;
    job.otherRecords = m_context.otherRecords;
    job.download.downloader = ytDlp();
    job.download.inspector = {*tools.ffmpegPath(), *tools.ffprobePath()};
    // The address field may have been edited since.
    job.download.address = m_infoAddress;
    job.download.outputDirectory = m_context.downloadDirectory;
    job.download.format = outputFormat();
    job.download.customTitle = m_title.override();
    job.download.info = m_info;
    job.download.earlier = m_attempts;
    job.trimToApply = [this, format = job.download.format] { return trimToApply(format); };
    return job;
}

std::optional<TrimRange> DownloaderView::trimToApply(OutputFormat format) const
{
    const TrimRange range{m_trimStart, m_trimEnd};
    if (!m_trimEnabled || !m_rangeIsOfThisVideo || traits(format).isAudioOnly
        || !range.isLongEnough())
        return std::nullopt;
    return range;
}

void DownloaderView::downloadRecorded(const QUuid &recordId)
{
    m_phase = Phase::done;
    Q_EMIT changed();
    m_context.desktop.playCompletionSound();
    if (m_onCompleted)
        m_onCompleted(recordId);
}

void DownloaderView::downloadFailed()
{
    m_phase = Phase::ready;
    reloadPreview();
    Q_EMIT changed();
}

void DownloaderView::showErrorLog()
{
    if (!errorLog())
        return;
    m_showLogs = true;
    m_shownLog = *errorLog();
    Q_EMIT changed();
}

void DownloaderView::dismissErrorMessage()
{
    m_pipeline.dismissErrorMessage();
    Q_EMIT changed();
}

} // namespace clipwren
