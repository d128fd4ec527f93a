#include "app/save/SaveCommand.h"

#include "core/library/DownloadStore.h"
#include "core/process/ToolEnvironment.h"
#include "core/text/Duration.h"
#include "workflow/download/FetchErrorText.h"

#include <algorithm>
#include <cstdio>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

} // namespace

SaveCommand::SaveCommand(const SaveArguments &arguments, DownloadStore &store,
                         HistoryStore &history, ToolEnvironment &tools, Desktop &desktop,
                         const Preferences &preferences)
    : m_arguments(arguments), m_store(store), m_tools(tools),
      m_format(arguments.format ? rawValue(*arguments.format)
                                : preferences.text(u"outputFormat"_s).value_or(QString())),
      m_report(stderr), m_view({store,
                                history,
                                tools,
                                m_noRequests,
                                desktop,
                                m_format,
                                {},
                               {},
                                DownloadStore::defaultDownloadDirectory(),
                                [] { return DownloadStore().records(); }},
                               [this](QUuid record) { printPath(record); })
{
    connect(&m_view, &DownloaderView::changed, this, &SaveCommand::follow);
}

void SaveCommand::start()
{
    if (const auto sentence = missingTools(m_tools))
        return fail(*sentence);
    if (m_arguments.trim && m_view.outputFormat() == OutputFormat::audioMP3)
        return fail(u"Audio is saved whole: --trim does not go with audioMP3."_s, WrongUse);
    m_view.setUrlText(m_arguments.address);
    m_view.fetchInfo(false);
}

void SaveCommand::follow()
{
    if (m_isFinished)
        return;
    switch (m_view.phase()) {
    case Phase::input:
        if (m_interrupted)
            finish(Interrupted);
        else if (m_view.fetchError())
            fail(withoutLog(*m_view.fetchError()));
        return;
    case Phase::fetching:
        if (m_view.fetchStatus() != m_lastStatus)
            m_report.status(m_lastStatus = m_view.fetchStatus());
        return;
    case Phase::confirming:
        return chooseAndStart();
    case Phase::ready:
        if (m_interrupted)
            finish(Interrupted);
        else if (m_view.errorMessage())
            fail(withoutLog(*m_view.errorMessage()));
        return;
    case Phase::downloading:
    case Phase::processing:
        m_report.progress(m_view.phaseLabel(), m_view.downloadProgress(), m_view.downloadStatus());
        return;
    case Phase::done:
        return;
    }
}

void SaveCommand::chooseAndStart()
{
    const std::optional<double> duration = m_view.info()->duration;
    m_report.line(u"%1 (%2)"_s.arg(m_view.info()->title.value_or(u"Untitled"_s),
                                   duration ? formatDuration(*duration) : u"—"_s));
    const auto &trim = m_arguments.trim;
    if (trim && duration && trim->start >= *duration)
        return fail(u"The video ends before the time range starts."_s);

    const QSignalBlocker untilAllIsChosen(m_view);
    if (trim) {
        m_view.setTrimEnabled(true);
        m_view.setTrimRange(trim->start, std::min(trim->end, duration.value_or(trim->end)));
    }
    if (m_arguments.title)
        m_view.setCustomTitle(*m_arguments.title);
    m_view.confirm();
    m_view.start();
}

void SaveCommand::interrupt()
{
    m_interrupted = true;
    m_view.cancelFetch();
    m_view.cancelDownload();
    // Where nothing runs, nothing will change either.
    follow();
}

void SaveCommand::printPath(QUuid record)
{
    const auto &records = m_store.records();
    const auto saved = std::find_if(records.begin(), records.end(),
                                    [&](const DownloadRecord &r) { return r.id == record; });
    std::puts(saved->filePath.toUtf8().constData());
    std::fflush(stdout);
    finish(Saved);
}

void SaveCommand::fail(const QString &sentence, ExitStatus status)
{
    m_report.line(sentence);
    finish(status);
}

void SaveCommand::finish(ExitStatus status)
{
    m_isFinished = true;
    Q_EMIT finished(status);
}

SaveCommand::ChosenFormat::ChosenFormat(const QString &rawValue) : m_rawValue(rawValue)
{
}

std::optional<QString> SaveCommand::ChosenFormat::text(const QString &) const
{
    return m_rawValue;
}

void SaveCommand::ChosenFormat::setText(const QString &, const QString &text)
{
    m_rawValue = text;
}

std::optional<QString> missingTools(const ToolEnvironment &tools)
{
    QStringList missing;
    if (!tools.ytDlpPath())
        missing.append(u"yt-dlp"_s);
    if (!tools.ffmpegPath())
        missing.append(u"ffmpeg"_s);
    if (!tools.ffprobePath())
        missing.append(u"ffprobe"_s);
    if (missing.isEmpty())
        return std::nullopt;
    return u"Not installed: %1. Install with “apt install yt-dlp ffmpeg” or “brew install yt-dlp "
           "ffmpeg”, so that it lies in one of %2."_s.arg(
               missing.join(u", "_s), ToolEnvironment::defaultSearchDirectories().join(u", "_s));
}

} // namespace clipwren
