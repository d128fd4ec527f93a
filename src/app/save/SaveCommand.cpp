#include "app/save/SaveCommand.h"

#include "core/process/ToolEnvironment.h"
#include "core/text/DecisiveLine.h"
#include "core/text/Duration.h"

#include <QCoreApplication>
#include <QTimer>

#include <algorithm>
#include <cstdio>

namespace clipwren {

using namespace Qt::StringLiterals;

namespace {

ApplicationContext withFormat(ApplicationContext context, std::optional<OutputFormat> format)
{
    context.format = format;
    return context;
}

} // namespace

SaveCommand::SaveCommand(const SaveArguments &arguments, const ApplicationContext &context)
    : m_arguments(arguments), m_tools(context.tools), m_report(stderr),
      m_view(withFormat(context, arguments.format), [this](QUuid) { finish(Saved); })
{
    connect(&m_view, &DownloaderView::changed, this, &SaveCommand::follow);
}

void SaveCommand::start()
{
    if (const auto sentence = missingTools(m_tools))
        return fail(*sentence);
    const OutputFormatTraits &format = traits(m_view.outputFormat());
    if (m_arguments.trim && format.isAudioOnly)
        return fail(QCoreApplication::translate("SaveCommand",
                                                "Audio is saved whole: --trim does not go with %1.")
                        .arg(format.rawValue),
                    WrongUse);
    m_view.setUrlText(m_arguments.address);
    m_view.fetchInfo(false);
}

void SaveCommand::follow()
{
    if (m_isFinished)
        return;
    if (m_isEnding) {
        if (m_tools.ytDlpVersion() || !m_tools.isReadingVersions() || m_interrupted)
            endWithHint();
        return;
    }
    switch (m_view.phase()) {
    case Phase::input:
        if (m_interrupted)
            finish(Interrupted);
        else if (m_view.fetchError() || m_isLookingUp)
            failLookup();
        return;
    case Phase::fetching:
        m_isLookingUp = true;
        if (m_view.fetchStatus() != m_lastStatus)
            m_report.status(m_lastStatus = m_view.fetchStatus());
        return;
    case Phase::confirming:
        return chooseAndStart();
    case Phase::ready:
        if (m_interrupted)
            finish(Interrupted);
        else if (m_view.errorMessage())
            failDownload();
        return;
    case Phase::downloading:
    case Phase::processing:
        m_report.progress(m_view.phaseLabel(), m_view.progress());
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
        return fail(QCoreApplication::translate("SaveCommand",
                                                "The video ends before the time range starts."));
    // The window shows what it saves instead; here it would come unseen.
    const QList<VideoFormat> formats = m_view.info()->formats.value_or(QList<VideoFormat>());
    if (m_arguments.format == OutputFormat::macCompatible
        && m_view.outputFormat() != OutputFormat::macCompatible
        && m_view.selectedOption().compat != CompatLevel::macNative
        && std::any_of(formats.begin(), formats.end(), carriesVideo))
        return fail(QCoreApplication::translate("SaveCommand",
                                                "The site does not offer this video in H.264."));

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

void SaveCommand::failLookup()
{
    // A look-up that is cancelled says nothing, and a tool that a signal ends counts as cancelled.
    QString sentence = m_view.fetchError().value_or(
        QCoreApplication::translate("SaveCommand", "yt-dlp was stopped before it had answered."));
    // Here is nothing to tap: the log follows.
    sentence.remove(QCoreApplication::translate("SaveCommand", " Tap 'View logs' for details."));
    m_report.line(sentence);
    if (const QString line = decisiveLine(m_view.fetchLog()); !sentence.contains(line))
        m_report.line(line);
    readVersion();
}

void SaveCommand::failDownload()
{
    const QString sentence = m_view.errorMessage().value_or(QString());
    const bool wasCancelled = sentence == CancellationError().errorDescription();
    m_report.line(wasCancelled ? QCoreApplication::translate(
                      "SaveCommand", "The tool was stopped before it had finished.")
                               : sentence);
    readVersion();
}

void SaveCommand::readVersion()
{
    if (!m_view.downloaderFailed())
        return finish(Failed);
    // Only now, since it costs a run of the tool, which may hang.
    m_isEnding = true;
    m_tools.readVersions();
    QTimer::singleShot(std::chrono::seconds(5), this, &SaveCommand::endWithHint);
}

void SaveCommand::endWithHint()
{
    if (m_isFinished)
        return;
    if (const auto hint = m_view.outdatedHint())
        m_report.line(*hint);
    finish(Failed);
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

std::optional<QString> missingTools(const ToolEnvironment &tools)
{
    QStringList missing;
    for (const ToolEnvironment::Tool &tool : tools.tools()) {
        if (!tool.path)
            missing.append(tool.name);
    }
    if (missing.isEmpty())
        return std::nullopt;
    return QCoreApplication::translate(
               "SaveCommand",
               "Not installed: %1. Install with “apt install yt-dlp ffmpeg” or “brew install "
               "yt-dlp ffmpeg”, so that it lies in one of %2.")
        .arg(missing.join(u", "_s), ToolEnvironment::defaultSearchDirectories().join(u", "_s));
}

} // namespace clipwren
