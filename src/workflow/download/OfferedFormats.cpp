#include "workflow/download/OfferedFormats.h"

#include <algorithm>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

qint64 heightOf(const VideoFormat &format)
{
    return format.height.value_or(0);
}

/// The tool counts a codec that the site does not name as there.
bool isNone(const std::optional<QString> &codec)
{
    return codec && codec->toLower() == "none"_L1;
}

bool isH264(const VideoFormat &format)
{
    return carriesVideo(format) && format.vcodec->startsWith("avc1"_L1);
}

bool isM4aAudio(const VideoFormat &format)
{
    return isNone(format.vcodec) && !isNone(format.acodec) && format.ext == "m4a"_L1;
}

bool isWholeMp4(const VideoFormat &format)
{
    return !isNone(format.vcodec) && !isNone(format.acodec) && format.ext == "mp4"_L1;
}

/// The last of the fitting formats with the greatest height, which is the one that the tool takes.
template <typename Fits>
std::optional<VideoFormat> lastOfGreatestHeight(const QList<VideoFormat> &formats, Fits fits)
{
    const VideoFormat *pick = nullptr;
    for (const VideoFormat &format : formats) {
        if (fits(format) && (!pick || heightOf(format) >= heightOf(*pick)))
            pick = &format;
    }
    return pick ? std::optional(*pick) : std::nullopt;
}

/// What the tool takes with the arguments for `macCompatible`, if that is H.264: without M4A sound
/// to merge with, it prefers a file that is whole already.
std::optional<VideoFormat> macCompatibleVideo(const QList<VideoFormat> &formats)
{
    const auto whole = lastOfGreatestHeight(formats, isWholeMp4);
    if (std::any_of(formats.begin(), formats.end(), isM4aAudio) || !whole)
        return lastOfGreatestHeight(formats, isH264);
    return isH264(*whole) ? whole : std::nullopt;
}

/// What the download of the best resolution gives.
std::optional<VideoFormat> bestResolutionVideo(const QList<VideoFormat> &formats)
{
    const auto last = lastOfGreatestHeight(formats, carriesVideo);
    const auto h264 = macCompatibleVideo(formats);
    return last && h264 && heightOf(*h264) == heightOf(*last) ? h264 : last;
}

QList<VideoFormat> formatsOf(const std::optional<VideoInfo> &info)
{
    return info ? info->formats.value_or(QList<VideoFormat>()) : QList<VideoFormat>();
}

} // namespace

QList<FormatOption> offeredFormats(const std::optional<VideoInfo> &info)
{
    QList<VideoFormat> formats = formatsOf(info);
    const auto best = bestResolutionVideo(formats);
    if (!best)
        return FormatOption::options(info);
    // Of equals the options describe the first. H.264 that the tool would not take is left out.
    const auto h264 = macCompatibleVideo(formats);
    formats.removeIf([&](const VideoFormat &format) {
        return isH264(format) && (!h264 || heightOf(format) > heightOf(*h264));
    });
    formats.prepend(*best);
    VideoInfo saved = *info;
    saved.formats = formats;
    return FormatOption::options(saved);
}

OutputFormat requestedFormat(OutputFormat format, const std::optional<VideoInfo> &info)
{
    const QList<VideoFormat> formats = formatsOf(info);
    const auto h264 = macCompatibleVideo(formats);
    const auto best = bestResolutionVideo(formats);
    if (format != OutputFormat::bestResolution || !h264 || best != h264)
        return format;
    const bool hasOtherCodecs =
        std::any_of(formats.begin(), formats.end(), [&](const VideoFormat &other) {
            return !isNone(other.vcodec) && !isH264(other) && heightOf(other) == heightOf(*h264);
        });
    return hasOtherCodecs ? OutputFormat::macCompatible : format;
}

bool matchesFormat(OutputFormat format, const MediaInspection &file,
                   const std::optional<VideoInfo> &info)
{
    const QList<VideoFormat> formats = formatsOf(info);
    const auto isLike = [&](const std::optional<VideoFormat> &shown) {
        return compatLevel(file.videoCodec.value_or(QString())) == compatLevel(*shown->vcodec)
            && file.height.value_or(0) >= heightOf(*shown);
    };
    const auto best = bestResolutionVideo(formats);
    const auto h264 = macCompatibleVideo(formats);
    switch (format) {
    case OutputFormat::bestResolution:
        // Without heights, "the highest available stream" is all that was said.
        return !best || heightOf(*best) == 0 || isLike(best);
    case OutputFormat::macCompatible:
        return h264 ? isLike(h264)
                    : compatLevel(file.videoCodec.value_or(QString())) == CompatLevel::macNative;
    case OutputFormat::proRes422:
        return !best || file.height.value_or(0) >= heightOf(*best);
    case OutputFormat::audioMP3:
        return true;
    }
    return true;
}

} // namespace clipwren
