#include "workflow/library/Reencoder.h"

#include "core/Error.h"
#include "core/library/DownloadStore.h"
#include "core/media/FfmpegService.h"
#include "core/process/ToolEnvironment.h"

#include <QFileInfo>
#include <QLoggingCategory>

#include <algorithm>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

// The one category whose name is not printed in front of the line.
Q_LOGGING_CATEGORY(plainLog, "default")

/// True when the copies of both files would have the same name: only the extensions differ.
bool haveSameOutput(const QString &path, const QString &other)
{
    const QFileInfo file(path);
    const QFileInfo otherFile(other);
    return file.absolutePath() == otherFile.absolutePath()
        && file.completeBaseName() == otherFile.completeBaseName();
}

} // namespace

Reencoder::Reencoder(DownloadStore &store, const ToolEnvironment &tools, Desktop &desktop,
                     QObject *parent)
    : QObject(parent), m_store(store), m_tools(tools), m_desktop(desktop)
{
}

Reencoder::~Reencoder() = default;

void Reencoder::convertToH264(const DownloadRecord &record)
{
    if (!m_tools.ffmpegPath() || !m_tools.ffprobePath() || m_reencodingIDs.contains(record.id))
        return;
    m_reencodingIDs.insert(record.id);
    m_waiting.push_back({record.id, record.filePath});
    startNext();
    Q_EMIT reencodingChanged();
}

void Reencoder::startNext()
{
    for (auto job = m_waiting.begin(); job != m_waiting.end();) {
        const bool blocked = std::ranges::any_of(m_running, [&job](const auto &running) {
            return haveSameOutput(running.second.input, job->input);
        });
        if (blocked) {
            ++job;
            continue;
        }
        start(*job);
        job = m_waiting.erase(job);
    }
}

/// The first suffix that gives a free name, so that films whose names differ only in the extension
/// get copies of their own. A film that is re-encoded again replaces its own copy.
QString Reencoder::suffixFor(const QString &input) const
{
    QString suffix = u"QT"_s;
    for (int number = 2;; ++number) {
        const QString output =
            FfmpegService::outputPath(input, EncodeProfile::h264Mp4().ext, suffix);
        if (!QFileInfo::exists(output) || m_inputs.value(output) == input)
            return suffix;
        suffix = u"QT %1"_s.arg(number);
    }
}

void Reencoder::start(const Job &job)
{
    const FfmpegService service{m_tools.ffmpegPath().value_or(QString()),
                                m_tools.ffprobePath().value_or(QString())};
    m_running[job.id] = {
        job.input, m_desktop.beginActivity(),
        BackgroundTask::start(
            [service, input = job.input, suffix = suffixFor(job.input)](
                const std::stop_token &stop, const BackgroundTask::Post &) {
                return service.transcode(input, EncodeProfile::h264Mp4(), std::nullopt, suffix, {},
                                         {}, stop);
            },
            [this, id = job.id](const QString &output) { succeed(id, output); },
            [this, id = job.id](const std::exception_ptr &failure) { fail(id, failure); })};
}

void Reencoder::succeed(const QUuid &id, const QString &output)
{
    m_inputs.insert(output, m_running.at(id).input);
    // The record may have been changed or removed meanwhile.
    const QList<DownloadRecord> &records = m_store.records();
    const auto place = std::ranges::find(records, id, &DownloadRecord::id);
    if (place != records.end()) {
        DownloadRecord record = *place;
        record.filePath = output;
        m_store.update(record);
    }
    m_desktop.notify({tr("Re-encode complete"), QFileInfo(output).fileName(), output});
    finish(id);
}

void Reencoder::fail(const QUuid &id, const std::exception_ptr &failure)
{
    try {
        std::rethrow_exception(failure);
    } catch (const std::exception &error) {
        const QString reason = errorDescription(error);
        qCWarning(plainLog).noquote().nospace() << "Re-encode failed: " << reason;
        m_desktop.notify({tr("Re-encode failed"), reason});
    }
    finish(id);
}

void Reencoder::finish(const QUuid &id)
{
    m_running.erase(id);
    m_reencodingIDs.remove(id);
    startNext();
    Q_EMIT reencodingChanged();
}

} // namespace clipwren
