#include "workflow/download/OfferedFormats.h"

#include "support/Printing.h"

#include <gtest/gtest.h>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

/// A format as in "webm vp9 - 1080": container, picture, sound and height; "?" is not named.
VideoFormat formatFrom(const QString &text)
{
    const QStringList fields = text.split(u' ', Qt::SkipEmptyParts);
    const auto codec = [](const QString &name) {
        return name == u"?" ? std::nullopt : std::optional(name == u"-" ? u"none"_s : name);
    };
    return {.vcodec = codec(fields[1]),
            .acodec = codec(fields[2]),
            .ext = fields[0],
            .height = fields.size() > 3 ? std::optional(fields[3].toLongLong()) : std::nullopt};
}

VideoInfo infoFrom(const QString &formats)
{
    VideoInfo info{.formats = QList<VideoFormat>()};
    for (const QString &format : formats.split(u',', Qt::SkipEmptyParts))
        info.formats->append(formatFrom(format));
    return info;
}

const QString sound = u"m4a - mp4a.40.2, webm - opus, mp4 avc1.42001E mp4a.40.2 360,"_s;
const QString soundWithoutM4a = u"webm - opus, mp4 avc1.42001E mp4a.40.2 360,"_s;

struct PromiseCase {
    QString formats;
    QStringList titles; ///< shown, without those of ProRes and MP3
    OutputFormat bestRequest; ///< whose arguments are asked for best resolution
};

TEST(OfferedFormats, showsWhatTheToolTakes)
{
    using enum OutputFormat;
    const PromiseCase cases[] = {
        // The greatest height in one codec.
        {sound + u"mp4 avc1.64 - 1080"_s, {u"Best resolution — 1080p H.264"_s}, bestResolution},
        {sound + u"mp4 avc1.64 - 1080, webm vp9 - 2160"_s,
         {u"Best resolution — 2160p VP9"_s, u"Mac Compatible — 1080p H.264"_s},
         bestResolution},
        // In several, H.264 among them: in front, amid, behind.
        {sound + u"mp4 avc1.64 - 1080, webm vp9 - 1080, mp4 av01.0 - 1080"_s,
         {u"Best resolution — 1080p H.264"_s},
         macCompatible},
        {sound + u"webm vp9 - 1080, mp4 avc1.64 - 1080, mp4 av01.0 - 1080"_s,
         {u"Best resolution — 1080p H.264"_s},
         macCompatible},
        {sound + u"mp4 av01.0 - 1080, mp4 avc1.64 - 1080"_s,
         {u"Best resolution — 1080p H.264"_s},
         macCompatible},
        {sound + u"mp4 avc1.64 - 1080, mp4 ? - 1080"_s,
         {u"Best resolution — 1080p H.264"_s},
         macCompatible},
        // In several others, with H.264 below: 2160 and 2026 lines.
        {sound + u"mp4 avc1.64 - 1080, webm vp09.0 - 2160, mp4 av01.0 - 2160"_s,
         {u"Best resolution — 2160p AV1"_s, u"Mac Compatible — 1080p H.264"_s},
         bestResolution},
        {sound + u"mp4 avc1.64 - 1012, webm vp9 - 1012, mp4 av01.0 - 2026, webm vp9 - 2026"_s,
         {u"Best resolution — 2026p VP9"_s, u"Mac Compatible — 1012p H.264"_s},
         bestResolution},
        {sound + u"mp4 hev1 - 720, webm vp9 - 720"_s,
         {u"Best resolution — 720p VP9"_s, u"Mac Compatible — 360p H.264"_s},
         bestResolution},
        // Without M4A sound, the tool asked for H.264 takes the file that is whole.
        {soundWithoutM4a + u"mp4 avc1.64 - 1080, webm vp9 - 1080"_s,
         {u"Best resolution — 1080p VP9"_s, u"Mac Compatible — 360p H.264"_s},
         bestResolution},
        {u"webm - opus, mp4 avc1.64 - 1080, webm vp9 - 1080"_s,
         {u"Best resolution — 1080p H.264"_s},
         macCompatible},
        // Nothing is known.
        {u"mp4 ? ?"_s, {u"Best resolution"_s}, bestResolution},
        {{}, {u"Best resolution"_s}, bestResolution},
    };
    for (const auto &[formats, titles, request] : cases) {
        SCOPED_TRACE(formats.toStdString());
        const VideoInfo info = infoFrom(formats);
        QStringList shown;
        for (const FormatOption &option : offeredFormats(info)) {
            if (option.kind != proRes422 && option.kind != audioMP3)
                shown.append(option.title);
        }
        EXPECT_EQ(shown, titles);
        EXPECT_EQ(requestedFormat(bestResolution, info), request);
        for (const OutputFormat other : {macCompatible, proRes422, audioMP3})
            EXPECT_EQ(requestedFormat(other, info), other);
    }
}

TEST(OfferedFormats, isKeptByEveryFileOfThatClassAndHeight)
{
    using enum OutputFormat;
    const VideoInfo tied = infoFrom(sound + u"mp4 avc1 - 1080, webm vp9 - 1080, mp4 av01 - 1080"_s);
    const VideoInfo above =
        infoFrom(sound + u"mp4 avc1 - 1080, webm vp9 - 2160, mp4 av01 - 2160"_s);
    const std::tuple<VideoInfo, OutputFormat, QString, int, bool> cases[] = {
        {tied, bestResolution, u"h264"_s, 1080, true},
        {tied, bestResolution, u"vp9"_s, 1080, false},
        {tied, bestResolution, u"h264"_s, 720, false},
        {above, bestResolution, u"vp9"_s, 2160, true},
        {above, bestResolution, u"av1"_s, 2160, true},
        {above, bestResolution, u"h264"_s, 1080, false},
        {above, macCompatible, u"h264"_s, 1080, true},
        {above, macCompatible, u"h264"_s, 360, false},
        {above, macCompatible, u"vp9"_s, 2160, false},
        {above, proRes422, u"av1"_s, 2160, true},
        {above, proRes422, u"h264"_s, 1080, false},
        {tied, proRes422, u"vp9"_s, 1080, true},
        {above, audioMP3, {}, 0, true},
        {VideoInfo(), bestResolution, u"vp9"_s, 10, true},
        {VideoInfo(), macCompatible, u"vp9"_s, 10, false},
    };
    for (const auto &[info, format, codec, height, isKept] : cases) {
        EXPECT_EQ(matchesFormat(format, {.videoCodec = codec, .height = height}, info), isKept)
            << codec.toStdString() << ' ' << height;
    }
}

} // namespace
} // namespace clipwren
