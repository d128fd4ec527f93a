#include "core/formats/FormatOption.h"

#include "core/OptionalHash.h"
#include "core/formats/ByteCountText.h"
#include "core/ytdlp/VideoInfo.h"

#include <QCoreApplication>
#include <QtNumeric>

#include <algorithm>
#include <array>
#include <limits>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

constexpr qint64 maximumBytes = std::numeric_limits<qint64>::max();

bool startsWithAny(const QString &text, std::initializer_list<QLatin1StringView> prefixes)
{
    return std::any_of(prefixes.begin(), prefixes.end(),
                       [&](QLatin1StringView prefix) { return text.startsWith(prefix); });
}

struct ProResRate {
    qint64 maximumHeight;
    double bytesPerSecond;
};

constexpr std::array<ProResRate, 6> proResRates{{
    {480, 9'125'000},
    {720, 13'750'000},
    {1080, 27'500'000},
    {1440, 49'125'000},
    {2160, 110'500'000},
    {std::numeric_limits<qint64>::max(), 187'500'000},
}};

/// 0 when the height in pixels or the duration in seconds is not known.
qint64 estimatedProResBytes(qint64 height, double duration)
{
    if (height < 1 || !(duration > 0))
        return 0;
    const auto rate =
        std::find_if(proResRates.begin(), proResRates.end(),
                     [&](const ProResRate &row) { return height <= row.maximumHeight; });
    const double bytes = rate->bytesPerSecond * duration;
    return bytes < static_cast<double>(maximumBytes) ? static_cast<qint64>(bytes) : maximumBytes;
}

bool namesCodec(const std::optional<QString> &codec)
{
    return codec && !codec->isEmpty() && codec->toLower() != u"none";
}

bool isH264Video(const VideoFormat &format)
{
    return carriesVideo(format) && format.vcodec->toLower().startsWith(u"avc1");
}

bool isM4aAudio(const VideoFormat &format)
{
    return namesCodec(format.acodec) && !carriesVideo(format) && format.ext == u"m4a";
}

qint64 heightOf(const VideoFormat &format)
{
    return format.height.value_or(0);
}

double audioRateOf(const VideoFormat &format)
{
    return format.abr.value_or(0);
}

/// The first of the fitting formats with the greatest value; absent when none fits.
template <typename Fits, typename ValueOf>
std::optional<VideoFormat> best(const QList<VideoFormat> &formats, Fits fits, ValueOf valueOf)
{
    const VideoFormat *pick = nullptr;
    for (const VideoFormat &format : formats) {
        if (fits(format) && (!pick || valueOf(format) > valueOf(*pick)))
            pick = &format;
    }
    return pick ? std::optional(*pick) : std::nullopt;
}

qint64 sizeOf(const std::optional<VideoFormat> &pick)
{
    if (!pick)
        return 0;
    return pick->filesize.value_or(pick->filesize_approx.value_or(0));
}

std::optional<qint64> known(qint64 bytes)
{
    return bytes >= 1 ? std::optional(bytes) : std::nullopt;
}

/// Saturates: a site may state any size.
qint64 sum(qint64 first, qint64 second)
{
    qint64 result = 0;
    if (qAddOverflow(first, second, &result))
        return first < 0 ? std::numeric_limits<qint64>::min() : maximumBytes;
    return result;
}

FormatOption bestResolution(const std::optional<VideoFormat> &video, qint64 audioBytes)
{
    const QString codec = video ? *video->vcodec : QString();
    FormatOption option{OutputFormat::bestResolution,
                        QCoreApplication::translate("FormatOption", "Best resolution"),
                        QCoreApplication::translate("FormatOption", "Highest available stream."),
                        compatLevel(codec), known(sum(sizeOf(video), audioBytes))};
    const qint64 height = video ? heightOf(*video) : 0;
    if (height == 0)
        return option;

    const QString codecName = prettyCodecName(codec);
    option.title = QCoreApplication::translate("FormatOption", "Best resolution — %1p %2")
                       .arg(QString::number(height), codecName);
    if (option.compat == CompatLevel::macNative) {
        option.subtitle = QCoreApplication::translate(
            "FormatOption", "Plays in QuickTime, CapCut, Final Cut, iMovie.");
    } else if (option.compat == CompatLevel::macModern) {
        option.subtitle = QCoreApplication::translate(
            "FormatOption", "Plays on modern macOS. May not play in older tools.");
    } else {
        option.subtitle =
            QCoreApplication::translate("FormatOption",
                                        "Will only play in VLC or IINA. QuickTime can't decode %1.")
                .arg(codecName);
    }
    return option;
}

FormatOption macCompatible(const VideoFormat &h264, qint64 audioBytes)
{
    return {OutputFormat::macCompatible,
            QCoreApplication::translate("FormatOption", "Mac Compatible — %1p H.264")
                .arg(heightOf(h264)),
            QCoreApplication::translate("FormatOption",
                                        "Lower resolution than max, but plays everywhere on Mac."),
            CompatLevel::macNative, known(sum(sizeOf(h264), audioBytes))};
}

FormatOption proRes422(qint64 height, double duration)
{
    FormatOption option{
        OutputFormat::proRes422, QCoreApplication::translate("FormatOption", "Apple ProRes 422"),
        QCoreApplication::translate(
            "FormatOption", "Editing format for Final Cut / Resolve. Files are very large."),
        CompatLevel::proRes, known(estimatedProResBytes(height, duration))};
    if (option.approximateBytes) {
        option.subtitle =
            QCoreApplication::translate(
                "FormatOption",
                "Editing format (Final Cut / Resolve). ~%1 at %2p — far larger than MP4.")
                .arg(byteCountText(*option.approximateBytes, {ByteUnit::MB, ByteUnit::GB}),
                     QString::number(height));
    }
    return option;
}

} // namespace

QList<FormatOption> FormatOption::options(const std::optional<VideoInfo> &info)
{
    const QList<VideoFormat> formats =
        info ? info->formats.value_or(QList<VideoFormat>()) : QList<VideoFormat>();
    const auto video = best(formats, carriesVideo, heightOf);
    const auto h264 = best(formats, isH264Video, heightOf);
    const qint64 audioBytes = sizeOf(best(formats, isM4aAudio, audioRateOf));
    const qint64 height = video ? heightOf(*video) : 0;

    QList<FormatOption> options;
    for (const OutputFormat format : allOutputFormats) {
        switch (format) {
        case OutputFormat::bestResolution:
            options.append(bestResolution(video, audioBytes));
            break;
        case OutputFormat::macCompatible:
            if (h264 && heightOf(*h264) >= 1 && heightOf(*h264) < height)
                options.append(macCompatible(*h264, audioBytes));
            break;
        case OutputFormat::proRes422:
            options.append(proRes422(height, info ? info->duration.value_or(0) : 0));
            break;
        case OutputFormat::audioMP3:
            options.append(
                {OutputFormat::audioMP3,
                 QCoreApplication::translate("FormatOption", "Audio only (MP3)"),
                 QCoreApplication::translate("FormatOption", "Strip video, best VBR audio."),
                 CompatLevel::audioOnly, std::nullopt});
            break;
        }
    }
    return options;
}

bool carriesVideo(const VideoFormat &format)
{
    return namesCodec(format.vcodec);
}

CompatLevel compatLevel(const QString &codec)
{
    const QString name = codec.toLower();
    if (startsWithAny(name, {"avc"_L1, "h264"_L1}))
        return CompatLevel::macNative;
    if (startsWithAny(name, {"hev"_L1, "hvc"_L1, "h265"_L1}))
        return CompatLevel::macModern;
    return CompatLevel::needsThirdParty;
}

QString prettyCodecName(const QString &codec)
{
    const QString name = codec.toLower();
    if (startsWithAny(name, {"avc1"_L1, "h264"_L1}))
        return u"H.264"_s;
    if (startsWithAny(name, {"hev"_L1, "hvc"_L1, "h265"_L1}))
        return u"HEVC"_s;
    if (startsWithAny(name, {"av01"_L1}))
        return u"AV1"_s;
    if (startsWithAny(name, {"vp9"_L1, "vp09"_L1}))
        return u"VP9"_s;
    if (startsWithAny(name, {"vp8"_L1, "vp08"_L1}))
        return u"VP8"_s;
    return codec.toUpper();
}

size_t qHash(const FormatOption &option, size_t seed)
{
    return qHashMulti(seed, static_cast<int>(option.kind), option.title, option.subtitle,
                      static_cast<int>(option.compat), optionalHash(option.approximateBytes));
}

} // namespace clipwren
