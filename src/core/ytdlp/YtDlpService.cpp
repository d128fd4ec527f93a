#include "core/ytdlp/YtDlpService.h"

#include "core/process/ProcessRunner.h"
#include "core/ytdlp/DownloadArguments.h"

#include <QCoreApplication>
#include <QFile>
#include <QTextBoundaryFinder>

#include <algorithm>
#include <filesystem>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

/// "[youtube] abc: Downloading webpage" without its tag.
QString withoutTag(QStringView line)
{
    const qsizetype close = line.startsWith(u'[') ? line.indexOf(u']') : -1;
    if (close < 2)
        return line.toString();
    qsizetype start = close + 1;
    while (start < line.size() && line[start].isSpace())
        ++start;
    return line.sliced(start).toString();
}

void createDirectory(const QString &directory)
{
    std::error_code error;
    std::filesystem::create_directories(QFile::encodeName(directory).toStdString(), error);
    if (error)
        throw std::system_error(error, directory.toStdString());
}

bool isForbiddenInFilenames(QStringView character)
{
    constexpr QStringView forbidden = u"/\\:?*\"<>|";
    return character.size() == 1
        && (forbidden.contains(character.front()) || character.front().isNull());
}

QString withForbiddenReplaced(const QString &text)
{
    QString result;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype start = 0;
    while (finder.toNextBoundary() >= 0) {
        const QStringView character = QStringView(text).sliced(start, finder.position() - start);
        if (isForbiddenInFilenames(character))
            result += u'-';
        else
            result += character;
        start = finder.position();
    }
    return result;
}

/// Counts characters as people see them.
QString firstCharacters(const QString &text, int count)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    while (count > 0 && finder.toNextBoundary() >= 0)
        --count;
    return finder.position() < 0 ? text : text.first(finder.position());
}

QString toolName()
{
    return u"yt-dlp"_s;
}

} // namespace

YtDlpService::FetchError::FetchError(Kind kind, const QString &description, const QString &log)
    : Error(description, description, {toolName(), log}), m_kind(kind)
{
}

YtDlpService::FetchError YtDlpService::FetchError::emptyResponse(const QString &log)
{
    return {Kind::emptyResponse,
            QCoreApplication::translate("YtDlpService",
                                        "yt-dlp returned no metadata. The video may be "
                                        "region-locked, age-restricted, or YouTube is throttling."),
            log};
}

YtDlpService::FetchError YtDlpService::FetchError::malformedJSON(const DecodingError &underlying,
                                                                 const QString &log)
{
    FetchError error(
        Kind::malformedJSON,
        QCoreApplication::translate(
            "YtDlpService", "yt-dlp returned data we couldn't parse. Tap 'View logs' for details."),
        log);
    error.m_underlying = underlying;
    return error;
}

ProcessRunner::Command YtDlpService::command(const QStringList &options, const QString &url) const
{
    return {binaryPath, options + QStringList{u"--"_s, url}};
}

YtDlpService::FetchedInfo YtDlpService::fetchInfo(const QString &url, const StatusHandler &onStatus,
                                                  const std::stop_token &stop) const
{
    const QStringList options{u"-J"_s,
                              u"-v"_s,
                              u"--no-warnings"_s,
                              u"--no-playlist"_s,
                              u"--socket-timeout"_s,
                              u"20"_s,
                              u"--retries"_s,
                              u"2"_s};
    const auto [document, log] = ProcessRunner::runCapturingStdoutStreamingStderr(
        command(options, url),
        [&](QStringView line) {
            if (onStatus)
                onStatus(withoutTag(line));
        },
        infoTimeout, stop);
    if (document.isEmpty())
        throw FetchError::emptyResponse(log);
    try {
        return {VideoInfo::fromJson(document.toUtf8()), log};
    } catch (const DecodingError &error) {
        throw FetchError::malformedJSON(error, log);
    }
}

std::optional<QUrl> YtDlpService::fetchPreviewURL(const QString &url,
                                                  const std::stop_token &stop) const
{
    const QStringList options{u"-g"_s,
                              u"-f"_s,
                              u"best[ext=mp4][protocol^=http][acodec!=none][vcodec!=none]/"
                              "best[height<=720][ext=mp4][acodec!=none]/18"_s,
                              u"--no-warnings"_s,
                              u"--no-playlist"_s,
                              u"--socket-timeout"_s,
                              u"15"_s};
    QString output = ProcessRunner::runCapturing(command(options, url), previewTimeout, stop);
    const QStringList lines = output.replace(u'\r', u'\n').split(u'\n', Qt::SkipEmptyParts);
    const QUrl address(lines.value(0).trimmed(), QUrl::StrictMode);
    return address.isValid() ? std::optional(address) : std::nullopt;
}

QString YtDlpService::download(const QString &url, const QString &outputDirectory,
                               OutputFormat format, const std::optional<QString> &customFilename,
                               const ProgressHandler &onProgress, const std::stop_token &stop) const
{
    constexpr qsizetype maximumLog = 100'000;
    createDirectory(outputDirectory);
    const QStringList options =
        downloadOptions(outputDirectory, format, customFilename, ffmpegPath);
    QString finalPath;
    QString log;
    ProcessRunner::runStreaming(
        command(options, url),
        [&](QStringView line) {
            if (const auto path = reportedPath(line))
                finalPath = *path;
            else if (const auto progress = DownloadProgress::fromLine(line); progress && onProgress)
                onProgress(*progress);
            else if (log.size() < maximumLog)
                log += line.first(std::min(line.size(), maximumLog)).toString() + u'\n';
        },
        stop);
    if (finalPath.isEmpty()) {
        throw ClipwrenError(ClipwrenError::Code::NoOutputPath,
                            QCoreApplication::translate(
                                "YtDlpService", "yt-dlp finished without reporting an output path"),
                            {toolName(), log});
    }
    return finalPath;
}

QString YtDlpService::sanitizeFilename(const QString &title)
{
    QString stem = withForbiddenReplaced(title);
    stem.replace(u'%', u"%%"_s);
    stem = stem.trimmed();
    while (stem.startsWith(u'.'))
        stem.remove(0, 1);
    stem = firstCharacters(stem, 180);
    return stem.isEmpty() ? u"Untitled"_s : stem;
}

} // namespace clipwren
