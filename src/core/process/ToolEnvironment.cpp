#include "core/process/ToolEnvironment.h"

#include "core/Logging.h"
#include "core/process/ProcessRunner.h"

#include <QFileInfo>

#include <algorithm>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

std::optional<QString> findTool(const QString &name, const QStringList &directories)
{
    for (const QString &directory : directories) {
        const QFileInfo file(directory + u'/' + name);
        if (file.isFile() && file.isExecutable())
            return file.filePath();
    }
    return std::nullopt;
}

/// "ffmpeg version 7.0.1 Copyright …" gives "7.0.1".
QString ffmpegVersionIn(const QString &output)
{
    QString line = output.section(u'\n', 0, 0);
    line.remove(u"ffmpeg version "_s);
    return line.section(u' ', 0, 0);
}

} // namespace

QStringList ToolEnvironment::defaultSearchDirectories()
{
    return {u"/opt/homebrew/bin"_s, u"/usr/local/bin"_s, u"/opt/local/bin"_s, u"/usr/bin"_s};
}

ToolEnvironment::ToolEnvironment(const QStringList &searchDirectories, Versions versions)
    : m_searchDirectories(searchDirectories), m_versions(versions)
{
    m_tools[YtDlp].name = u"yt-dlp"_s;
    m_tools[Ffmpeg].name = u"ffmpeg"_s;
    m_tools[Ffprobe].name = u"ffprobe"_s;
    refresh();
}

void ToolEnvironment::refresh()
{
    for (Tool &tool : m_tools)
        tool.path = findTool(tool.name, m_searchDirectories);
    Q_EMIT changed();
    if (m_versions == Versions::Read)
        readVersions();
}

void ToolEnvironment::readVersions()
{
    m_versions = Versions::Read;
    if (ytDlpPath()) {
        readVersion(*ytDlpPath(), u"--version"_s, [this](auto output) {
            m_tools[YtDlp].version = output ? std::optional(output->trimmed()) : std::nullopt;
        });
    }
    if (ffmpegPath()) {
        readVersion(*ffmpegPath(), u"-version"_s, [this](auto output) {
            m_tools[Ffmpeg].version = ffmpegVersionIn(output.value_or(QString()));
        });
    }
}

bool ToolEnvironment::allFound() const
{
    return std::ranges::all_of(m_tools, [](const Tool &tool) { return tool.path.has_value(); });
}

bool ToolEnvironment::isReadingVersions() const
{
    return std::ranges::any_of(m_versionQueries, &BackgroundTask::isRunning);
}

void ToolEnvironment::readVersion(const QString &path, const QString &argument,
                                  const std::function<void(std::optional<QString>)> &apply)
{
    std::erase_if(m_versionQueries, [](const BackgroundTask &task) { return !task.isRunning(); });
    // Queries of an earlier search go on: whichever ends last leaves its answer.
    m_versionQueries.push_back(BackgroundTask::start(
        [path, argument](const std::stop_token &stop, const BackgroundTask::Post &) {
            return ProcessRunner::runCapturing({path, {argument}}, std::nullopt, stop);
        },
        [this, apply](const QString &output) {
            apply(output);
            Q_EMIT changed();
        },
        [this, path, apply](const std::exception_ptr &) {
            qCDebug(processLog) << path << "does not tell its version";
            apply(std::nullopt);
            Q_EMIT changed();
        }));
}

} // namespace clipwren
