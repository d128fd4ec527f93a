#include "workflow/download/Conversion.h"

#include "core/Error.h"
#include "core/Logging.h"
#include "core/media/OutputFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

/// Whether file systems accept a name of that length.
bool fits(const QString &path)
{
    constexpr qsizetype maximumBytes = 255;
    return QFile::encodeName(QFileInfo(path).fileName()).size() <= maximumBytes;
}

} // namespace

Conversion::Result Conversion::run(const FfmpegService::FractionHandler &onProgress,
                                   const std::stop_token &stop) const
{
    // The duration that the site states need not be that of the file.
    const std::optional<Lengths> film = lengths(input, stop);
    Range range = trim;
    if (range && film) {
        const std::optional<double> end = film->picture ? film->picture : film->whole;
        if (end && range->start >= *end)
            throw Error(QCoreApplication::translate(
                "Conversion", "The video ends before the time range starts."));
        range->end = std::min(range->end, film->whole.value_or(range->end));
    }

    std::optional<double> length;
    const auto check = [&](const QString &path) {
        const std::optional<Lengths> written = lengths(path, stop);
        // ffmpeg reports success for a file without a single frame.
        const bool isEmpty = written
            && ((film && film->hasPicture && !written->hasPicture)
                || written->whole.value_or(0) <= 0);
        if (isEmpty && range)
            throw Error(QCoreApplication::translate("Conversion",
                                                    "The video shows nothing in that time range."));
        if (isEmpty || (!written && film))
            throw Error(QCoreApplication::translate("Conversion",
                                                    "ffmpeg wrote a file that does not play."));
        if (written)
            length = written->whole;
    };
    const QString output =
        ffmpeg.transcode(input, profile, range, suffix(range, stop), onProgress, check, stop);
    // A cut ends at a frame boundary, so seldom exactly at the given time.
    constexpr double usualDifferenceSeconds = 0.5;
    if (range && length && range->start + *length + usualDifferenceSeconds < range->end)
        range->end = range->start + *length;
    return {output, range};
}

/// Absent where ffprobe cannot read the file.
std::optional<FfmpegService::Lengths> Conversion::lengths(const QString &path,
                                                          const std::stop_token &stop) const
{
    try {
        return ffmpeg.lengths(path, stop);
    } catch (const Error &error) {
        if (stop.stop_requested())
            throw CancellationError();
        qCDebug(processLog) << "No lengths:" << errorDescription(error);
        return std::nullopt;
    }
}

QString Conversion::suffix(const Range &range, const std::stop_token &stop) const
{
    const QString first = range ? u"trimmed"_s : QString();
    QString suffix = first;
    for (int number = 2;; ++number) {
        if (mayWrite(FfmpegService::outputPath(input, profile.ext, suffix), range, stop))
            return suffix;
        suffix = u"%1 %2"_s.arg(first).arg(number).trimmed();
        if (!fits(FfmpegService::outputPath(input, profile.ext, suffix)))
            suffix = QString::number(number);
    }
}

bool Conversion::mayWrite(const QString &path, const Range &range,
                          const std::stop_token &stop) const
{
    bool isRecorded = false;
    for (const DownloadRecord &record : records) {
        if (record.filePath != path)
            continue;
        isRecorded = true;
        const bool isSameRange = range
            ? record.trimStart == range->start && record.trimEnd == range->end
            : !record.trimStart && !record.trimEnd;
        if (!isSameRange || record.sourceURL != sourceURL)
            return false;
    }
    // A file that does not play is left from a killed conversion.
    const auto known = mayExist(path) ? lengths(path, stop) : std::nullopt;
    if (!known || known->whole.value_or(0) <= 0)
        return true;
    return isRecorded && hasPictureOfInput(path, stop);
}

/// The same range may have been cut from a download of another format.
bool Conversion::hasPictureOfInput(const QString &path, const std::stop_token &stop) const
{
    try {
        return ffmpeg.inspect(path, stop).dimensions() == ffmpeg.inspect(input, stop).dimensions();
    } catch (const Error &error) {
        qCDebug(processLog) << "Pictures cannot be compared:" << errorDescription(error);
        return false;
    }
}

} // namespace clipwren
