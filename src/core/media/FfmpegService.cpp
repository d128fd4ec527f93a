#include "core/media/FfmpegService.h"

#include "core/Error.h"
#include "core/Logging.h"
#include "core/json/JsonObjectReader.h"
#include "core/media/FfmpegProgress.h"
#include "core/media/FfprobeReport.h"
#include "core/media/OutputFile.h"
#include "core/process/ProcessRunner.h"
#include "core/text/Numbers.h"

#include <QCoreApplication>
#include <QFile>

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

double lengthOf(const TrimRange &trim)
{
    return std::max(trim.end - trim.start, 0.001);
}

/// Seconds as printf's "%.3f" writes them in the C locale.
QString secondsText(double seconds)
{
    std::array<char, 512> text{};
    const auto result =
        std::to_chars(text.data(), text.data() + text.size(), seconds, std::chars_format::fixed, 3);
    return QString::fromLatin1(QByteArrayView(text.data(), result.ptr));
}

bool isSameFile(const QString &path, const QString &other)
{
    // Resolves links and different spellings of one path.
    std::error_code ignored;
    return path == other
        || std::filesystem::equivalent(QFile::encodeName(path).toStdString(),
                                       QFile::encodeName(other).toStdString(), ignored);
}

QStringList transcodeArguments(const QString &input, const QString &output,
                               const EncodeProfile &profile, const std::optional<TrimRange> &trim)
{
    QStringList arguments{u"-hide_banner"_s, u"-y"_s};
    // Before "-i", ffmpeg seeks instead of decoding everything up to the start.
    if (trim)
        arguments << u"-ss"_s << secondsText(trim->start);
    arguments << u"-i"_s << input;
    if (trim)
        arguments << u"-t"_s << secondsText(lengthOf(*trim));
    arguments << profile.videoArgs << profile.audioArgs;
    if (profile.ext == u"mp4")
        arguments << u"-movflags"_s << u"+faststart"_s;
    arguments << u"-progress"_s << u"pipe:1"_s << u"-nostats"_s << output;
    return arguments;
}

/// Seconds; 0 when unknown, which only means no progress is reported.
double knownDuration(const FfmpegService &service, const QString &path, const std::stop_token &stop)
{
    try {
        return service.duration(path, stop);
    } catch (const std::exception &error) {
        qCDebug(processLog) << "No progress without a length:" << errorDescription(error);
        return 0;
    }
}

} // namespace

MediaInspection FfmpegService::inspect(const QString &path, const std::stop_token &stop) const
{
    const QString report =
        ProcessRunner::runCapturing({ffprobePath,
                                     {u"-v"_s, u"error"_s, u"-print_format"_s, u"json"_s,
                                      u"-show_format"_s, u"-show_streams"_s, path}},
                                    std::nullopt, stop);
    if (report.isEmpty()) {
        throw ClipwrenError(ClipwrenError::Code::EmptyProbeOutput,
                            QCoreApplication::translate("Error", "empty ffprobe output"));
    }
    return MediaInspection::fromReport(FfprobeReport::fromJson(report.toUtf8()));
}

double FfmpegService::duration(const QString &path, const std::stop_token &stop) const
{
    const QString seconds =
        ProcessRunner::runCapturing({ffprobePath,
                                     {u"-v"_s, u"error"_s, u"-show_entries"_s, u"format=duration"_s,
                                      u"-of"_s, u"default=noprint_wrappers=1:nokey=1"_s, path}},
                                    std::nullopt, stop);
    return readNumber(seconds.trimmed()).value_or(0);
}

FfmpegService::Lengths FfmpegService::lengths(const QString &path,
                                              const std::stop_token &stop) const
{
    const QString report = ProcessRunner::runCapturing(
        {ffprobePath,
         {u"-v"_s, u"error"_s, u"-select_streams"_s, u"V"_s, u"-show_entries"_s,
          u"stream=index,duration:format=duration"_s, u"-of"_s, u"json"_s, path}},
        std::nullopt, stop);
    const auto json = JsonObjectReader::fromDocument(report.toUtf8());
    const auto seconds = [](const JsonObjectReader &entry) {
        return readNumber(entry.text(QLatin1StringView("duration")).value_or(QString()));
    };
    Lengths lengths;
    if (const auto format = json.object(QLatin1StringView("format")))
        lengths.whole = seconds(*format);
    if (const auto pictures = json.objects(QLatin1StringView("streams"))) {
        lengths.hasPicture = !pictures->empty();
        for (const JsonObjectReader &picture : *pictures)
            lengths.picture = std::max(lengths.picture, seconds(picture));
    }
    return lengths;
}

QString FfmpegService::outputPath(const QString &input, const QString &ext, const QString &suffix)
{
    const qsizetype dot = input.lastIndexOf(u'.');
    QString path = dot > input.lastIndexOf(u'/') + 1 ? input.first(dot) : input;
    if (!suffix.isEmpty())
        path += u" — "_s + suffix;
    path += u'.' + ext;
    return isSameFile(path, input) ? nextFreePath(path) : path;
}

QString FfmpegService::transcode(const QString &input, const EncodeProfile &profile,
                                 const std::optional<TrimRange> &trim, const QString &suffix,
                                 const FractionHandler &onProgress, const OutputCheck &check,
                                 const std::stop_token &stop) const
{
    const double seconds = trim ? lengthOf(*trim) : knownDuration(*this, input, stop);
    if (stop.stop_requested())
        throw CancellationError();

    QString output = outputPath(input, profile.ext, suffix);
    OutputFile file(output);
    try {
        ProcessRunner::runStreaming(
            {ffmpegPath, transcodeArguments(input, output, profile, trim)},
            [&](QStringView line) {
                if (const auto fraction = ffmpegFraction(line, seconds); fraction && onProgress)
                    onProgress(*fraction);
            },
            stop);
    } catch (const ProcessRunner::ProcessError &) {
        // On SIGTERM, ffmpeg finishes the file and exits with 255.
        if (stop.stop_requested())
            throw CancellationError();
        throw;
    }
    if (check)
        check(output);
    file.keep();
    return output;
}

} // namespace clipwren
