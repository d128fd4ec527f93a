#include "core/media/MediaInspection.h"

#include "core/OptionalHash.h"
#include "core/media/FfprobeReport.h"
#include "core/text/Numbers.h"

#include <initializer_list>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

std::optional<qint64> integerIn(const std::optional<QString> &text)
{
    return text ? readInteger(*text) : std::nullopt;
}

std::optional<double> numberIn(const std::optional<QString> &text)
{
    return text ? readNumber(*text) : std::nullopt;
}

std::optional<qint64> kilobitsIn(const std::optional<QString> &bits)
{
    const auto count = integerIn(bits);
    return count ? std::optional(*count / 1000) : std::nullopt;
}

std::optional<double> frameRateIn(const std::optional<QString> &fraction)
{
    const auto parts = QStringView(fraction.value_or(QString())).split(u'/', Qt::SkipEmptyParts);
    if (parts.size() != 2)
        return std::nullopt;
    const auto frames = readNumber(parts[0]);
    const auto seconds = readNumber(parts[1]);
    // Streams without a fixed rate have 0/0.
    if (!frames || !seconds || *seconds <= 0)
        return std::nullopt;
    return *frames / *seconds;
}

template <typename Value>
void replaceIfKnown(std::optional<Value> &field, std::optional<Value> value)
{
    if (value)
        field = value;
}

void applyVideo(const FfprobeReport::Stream &stream, MediaInspection &inspection)
{
    inspection.videoCodec = stream.codec_name;
    inspection.videoProfile = stream.profile;
    inspection.width = stream.width;
    inspection.height = stream.height;
    inspection.pixelFormat = stream.pix_fmt;
    replaceIfKnown(inspection.frameRate, frameRateIn(stream.r_frame_rate));
    replaceIfKnown(inspection.videoBitrateKbps, kilobitsIn(stream.bit_rate));
}

void applyAudio(const FfprobeReport::Stream &stream, MediaInspection &inspection)
{
    inspection.audioCodec = stream.codec_name;
    inspection.channels = stream.channels;
    inspection.channelLayout = stream.channel_layout;
    replaceIfKnown(inspection.sampleRateHz, integerIn(stream.sample_rate));
    replaceIfKnown(inspection.audioBitrateKbps, kilobitsIn(stream.bit_rate));
}

struct CodecName {
    QLatin1StringView codec;
    bool isPrefix;
    QLatin1StringView name;
};

constexpr CodecName codecNames[] = {
    {"h264"_L1, true, "H.264"_L1}, {"avc"_L1, true, "H.264"_L1}, {"hevc"_L1, true, "HEVC"_L1},
    {"h265"_L1, true, "HEVC"_L1},  {"av1"_L1, true, "AV1"_L1},   {"av01"_L1, true, "AV1"_L1},
    {"vp9"_L1, true, "VP9"_L1},    {"vp8"_L1, true, "VP8"_L1},   {"aac"_L1, false, "AAC"_L1},
    {"opus"_L1, false, "Opus"_L1}, {"mp3"_L1, false, "MP3"_L1},  {"pcm"_L1, true, "PCM"_L1},
};

} // namespace

MediaInspection MediaInspection::fromReport(const FfprobeReport &report)
{
    MediaInspection inspection;
    if (const auto &format = report.format) {
        inspection.sizeBytes = integerIn(format->size);
        inspection.duration = numberIn(format->duration);
        inspection.container = format->format_name;
        inspection.overallBitrateKbps = kilobitsIn(format->bit_rate);
    }
    for (const FfprobeReport::Stream &stream :
         report.streams.value_or(QList<FfprobeReport::Stream>())) {
        if (stream.codec_type == u"video")
            applyVideo(stream, inspection);
        else if (stream.codec_type == u"audio")
            applyAudio(stream, inspection);
    }
    return inspection;
}

QString MediaInspection::prettyCodec(const QString &name)
{
    const QString lower = name.toLower();
    for (const CodecName &row : codecNames) {
        if (row.isPrefix ? lower.startsWith(row.codec) : lower == row.codec)
            return row.name;
    }
    return name.toUpper();
}

std::optional<QString> MediaInspection::dimensions() const
{
    if (width.value_or(0) < 1 || height.value_or(0) < 1)
        return std::nullopt;
    return u"%1 × %2"_s.arg(*width).arg(*height);
}

size_t qHash(const MediaInspection &inspection, size_t seed)
{
    return qHashMulti(
        seed, optionalHash(inspection.sizeBytes), optionalHash(inspection.duration),
        optionalHash(inspection.container), optionalHash(inspection.overallBitrateKbps),
        optionalHash(inspection.videoCodec), optionalHash(inspection.videoProfile),
        optionalHash(inspection.width), optionalHash(inspection.height),
        optionalHash(inspection.frameRate), optionalHash(inspection.pixelFormat),
        optionalHash(inspection.videoBitrateKbps), optionalHash(inspection.audioCodec),
        optionalHash(inspection.sampleRateHz), optionalHash(inspection.channels),
        optionalHash(inspection.channelLayout), optionalHash(inspection.audioBitrateKbps));
}

} // namespace clipwren
