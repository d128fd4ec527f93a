#include "workflow/download/Conversion.h"

#include "core/process/ProcessRunner.h"

#include <QFileInfo>

#include <algorithm>

namespace clipwren {

QString Conversion::run(const FfmpegService::FractionHandler &onProgress,
                        const std::stop_token &stop) const
{
    return ffmpeg.transcode(input, profile, trim, suffix(stop), onProgress, stop);
}

QString Conversion::suffix(const std::stop_token &stop) const
{
    const QString first = trim ? QStringLiteral("trimmed") : QString();
    QString suffix = first;
    for (int number = 2; !stop.stop_requested(); ++number) {
        if (mayWrite(FfmpegService::outputPath(input, profile.ext, suffix), stop))
            break;
        suffix = QStringLiteral("%1 %2").arg(first).arg(number).trimmed();
    }
    return suffix;
}

bool Conversion::mayWrite(const QString &path, const std::stop_token &stop) const
{
    bool isRecorded = false;
    for (const DownloadRecord &record : records) {
        if (record.filePath != path)
            continue;
        isRecorded = true;
        const bool isSameRange = trim
            ? record.trimStart == trim->start && record.trimEnd == trim->end
            : !record.trimStart && !record.trimEnd;
        if (!isSameRange || record.sourceURL != sourceURL)
            return false;
    }
    // What does not play is the rest of a conversion that was killed.
    if (!QFileInfo::exists(path) || !plays(path, stop))
        return true;
    return isRecorded && hasPictureOfInput(path, stop);
}

bool Conversion::plays(const QString &path, const std::stop_token &stop) const
{
    try {
        return ffmpeg.duration(path, stop) > 0;
    } catch (const ProcessRunner::ProcessError &) {
        return false;
    }
}

/// The same range may have been cut from a download in another format.
bool Conversion::hasPictureOfInput(const QString &path, const std::stop_token &stop) const
{
    try {
        return ffmpeg.inspect(path, stop).dimensions() == ffmpeg.inspect(input, stop).dimensions();
    } catch (const Error &) {
        return false;
    }
}

} // namespace clipwren
