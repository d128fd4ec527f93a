#include "ui/shell/RecordFacts.h"

#include "core/formats/ByteCountText.h"
#include "core/text/Duration.h"
#include "platform/text/DateTimeText.h"

#include <QFileInfo>

namespace clipwren {

namespace {

using namespace Qt::StringLiterals;

/// ffprobe names the family of containers that a file belongs to, as in "mov,mp4,m4a,3gp,3g2,mj2".
QString containerName(const QString &container)
{
    const QString first = container.split(u',', Qt::SkipEmptyParts).value(0, container).toLower();
    if (first == "mov"_L1 || first == "mp4"_L1)
        return u"MPEG-4 movie"_s;
    if (first == "matroska"_L1)
        return u"Matroska video"_s;
    if (first == "mp3"_L1)
        return u"MP3 audio"_s;
    if (first == "webm"_L1)
        return u"WebM video"_s;
    return first.toUpper();
}

QString extensionName(const QString &path)
{
    const QString name = QFileInfo(path).fileName();
    const qsizetype dot = name.lastIndexOf(u'.');
    const QString extension = dot > 0 ? name.sliced(dot + 1).toLower() : QString();
    if (extension == "mp4"_L1 || extension == "m4v"_L1)
        return u"MPEG-4 movie"_s;
    if (extension == "mov"_L1)
        return u"QuickTime movie"_s;
    if (extension == "mp3"_L1)
        return u"MP3 audio"_s;
    return extension.toUpper();
}

QString containerLabel(const MediaInspection &inspection, const QString &path)
{
    return inspection.container ? containerName(*inspection.container) : extensionName(path);
}

QString sizeLabel(const MediaInspection &inspection, const QString &path)
{
    constexpr ByteUnits units{ByteUnit::KB, ByteUnit::TB};
    if (inspection.sizeBytes)
        return byteCountText(*inspection.sizeBytes, units);
    const QFileInfo file(path);
    return file.exists() ? byteCountText(file.size(), units) : QString();
}

QString codecsLabel(const MediaInspection &inspection)
{
    QStringList codecs;
    for (const auto &codec : {inspection.videoCodec, inspection.audioCodec}) {
        if (codec)
            codecs << MediaInspection::prettyCodec(*codec);
    }
    return codecs.join(u" + "_s);
}

QString frameRateLabel(const MediaInspection &inspection)
{
    return inspection.frameRate ? QString::number(*inspection.frameRate, 'f', 2) + u" fps"_s
                                : QString();
}

QString bitrateLabel(const MediaInspection &inspection)
{
    return inspection.overallBitrateKbps
        ? QLocale().toString(*inspection.overallBitrateKbps) + u" kbps"_s
        : QString();
}

QString durationLabel(const MediaInspection &inspection, const DownloadRecord &record)
{
    const auto seconds = inspection.duration ? inspection.duration : record.durationSeconds;
    return seconds ? formatDuration(*seconds) : QString();
}

struct TrimLabels {
    QString range;
    QString length;
};

TrimLabels trimLabels(const DownloadRecord &record)
{
    if (!record.trimStart || !record.trimEnd)
        return {};
    return {formatDuration(*record.trimStart) + u" – "_s + formatDuration(*record.trimEnd),
            formatDuration(*record.trimEnd - *record.trimStart)};
}

} // namespace

QList<RecordFact> recordFacts(const DownloadRecord &record,
                              const std::optional<MediaInspection> &inspection)
{
    const MediaInspection known = inspection.value_or(MediaInspection());
    const TrimLabels trim = trimLabels(record);
    QList<RecordFact> facts = {
        {u"Name"_s, QFileInfo(record.filePath).fileName(), true, false},
        {u"Kind"_s, containerLabel(known, record.filePath)},
        {u"Size"_s, sizeLabel(known, record.filePath)},
        {u"Dimensions"_s, known.dimensions().value_or(QString()), false, true},
        {u"Codecs"_s, codecsLabel(known), false, true},
        {u"Frame rate"_s, frameRateLabel(known)},
        {u"Bitrate"_s, bitrateLabel(known)},
        {u"Duration"_s, durationLabel(known, record)},
        {u"Downloaded"_s, dateTimeText(record.createdAt)},
        {u"Trim"_s, trim.range},
        {u"Clip length"_s, trim.length},
    };
    facts.removeIf([](const RecordFact &fact) { return fact.value.isEmpty(); });
    return facts;
}

std::optional<CompatVerdict> compatVerdict(const MediaInspection &inspection)
{
    if (!inspection.videoCodec)
        return std::nullopt;
    const QString codec = inspection.videoCodec->toLower();
    if (codec.startsWith("h264"_L1) || codec.startsWith("avc"_L1))
        return CompatVerdict{Pill::Tone::Green, u"checkmark.circle.fill", u"Plays in QuickTime"_s};
    if (codec.startsWith("hevc"_L1) || codec.startsWith("h265"_L1))
        return CompatVerdict{Pill::Tone::Blue, u"checkmark.circle.fill", u"macOS 10.13+"_s};
    return CompatVerdict{Pill::Tone::Orange, u"exclamationmark.triangle.fill",
                         u"Needs VLC or IINA"_s};
}

} // namespace clipwren
