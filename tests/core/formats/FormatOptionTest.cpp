#include "core/formats/FormatOption.h"

#include "core/formats/ByteCountText.h"
#include "core/formats/OutputFormat.h"
#include "core/ytdlp/VideoInfo.h"
#include "support/Printing.h"

#include <QLocale>

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;
using Size = std::optional<qint64>;

constexpr qint64 most = std::numeric_limits<qint64>::max();

VideoFormat video(const char *codec, Size height = {}, Size size = {})
{
    return {.vcodec = QString::fromUtf8(codec), .height = height, .filesize = size};
}

VideoFormat audio(const QString &extension, std::optional<double> rate, Size approximateSize)
{
    return {.vcodec = u"none"_s,
            .acodec = u"mp4a.40.2"_s,
            .ext = extension,
            .filesize_approx = approximateSize,
            .abr = rate};
}

QList<FormatOption> optionsFor(const QList<VideoFormat> &formats,
                               std::optional<double> duration = std::nullopt)
{
    return FormatOption::options(VideoInfo{.duration = duration, .formats = formats});
}

std::optional<FormatOption> find(const QList<FormatOption> &options, OutputFormat kind)
{
    const auto found = std::find_if(options.begin(), options.end(),
                                    [kind](const auto &option) { return option.kind == kind; });
    return found == options.end() ? std::nullopt : std::optional(*found);
}

TEST(FormatOption, offersThreeChoicesForAnUnknownVideo)
{
    const QList<FormatOption> expected{
        {OutputFormat::bestResolution, u"Best resolution"_s, u"Highest available stream."_s,
         CompatLevel::needsThirdParty, std::nullopt},
        {OutputFormat::proRes422, u"Apple ProRes 422"_s,
         u"Editing format for Final Cut / Resolve. Files are very large."_s, CompatLevel::proRes,
         std::nullopt},
        {OutputFormat::audioMP3, u"Audio only (MP3)"_s, u"Strip video, best VBR audio."_s,
         CompatLevel::audioOnly, std::nullopt},
    };
    EXPECT_EQ(FormatOption::options(std::nullopt), expected);
    EXPECT_EQ(FormatOption::options(VideoInfo{.duration = 10}), expected);
    EXPECT_EQ(optionsFor({}), expected);
    EXPECT_EQ(optionsFor({video("NONE", 1080, 5), video("", 720, 5)}, 10), expected);
}

TEST(FormatOption, describesTheBestResolutionByItsCodec)
{
    const QString everywhere = u"Plays in QuickTime, CapCut, Final Cut, iMovie."_s;
    const QString modern = u"Plays on modern macOS. May not play in older tools."_s;
    const QString players = u"Will only play in VLC or IINA. QuickTime can't decode "_s;
    const std::tuple<const char *, QString, QString, CompatLevel> cases[] = {
        {"AVC1.64001F", u"H.264"_s, everywhere, CompatLevel::macNative},
        {"h264", u"H.264"_s, everywhere, CompatLevel::macNative},
        {"avc3.4D401F", u"AVC3.4D401F"_s, everywhere, CompatLevel::macNative},
        {"hev1.1.6.L120.90", u"HEVC"_s, modern, CompatLevel::macModern},
        {"hvc1", u"HEVC"_s, modern, CompatLevel::macModern},
        {"vp09.00.40.08", u"VP9"_s, players + u"VP9."_s, CompatLevel::needsThirdParty},
        {"vp8", u"VP8"_s, players + u"VP8."_s, CompatLevel::needsThirdParty},
        {"av01.0.08M.08", u"AV1"_s, players + u"AV1."_s, CompatLevel::needsThirdParty},
        {"theora%1", u"THEORA%1"_s, players + u"THEORA%1."_s, CompatLevel::needsThirdParty},
    };
    for (const auto &[codec, name, subtitle, compat] : cases) {
        const FormatOption option = optionsFor({video(codec, 1080)}).first();
        EXPECT_EQ(option.title, u"Best resolution — 1080p "_s + name);
        EXPECT_EQ(option.subtitle, subtitle);
        EXPECT_EQ(option.compat, compat) << codec;
    }
    // Without a height nothing can be said but the class.
    const FormatOption unmeasured = optionsFor({video("avc1")}).first();
    EXPECT_EQ(unmeasured.subtitle, u"Highest available stream."_s);
    EXPECT_EQ(unmeasured.compat, CompatLevel::macNative);
}

TEST(FormatOption, offersMacCompatibleOnlyBelowTheBestHeight)
{
    const auto offered =
        optionsFor({video("vp9", 2160), video("avc1", 720), video("AVC1.640028", 1080)})[1];
    EXPECT_EQ(offered.kind, OutputFormat::macCompatible);
    EXPECT_EQ(offered.title, u"Mac Compatible — 1080p H.264"_s);
    EXPECT_EQ(offered.subtitle, u"Lower resolution than max, but plays everywhere on Mac."_s);
    EXPECT_EQ(offered.compat, CompatLevel::macNative);
    // Of one height, the codec that is listed first gives the title.
    const std::tuple<QList<VideoFormat>, QString> cases[] = {
        {{video("av01", 1080), video("avc1", 1080)}, u"Best resolution — 1080p AV1"_s},
        {{video("avc1", 1080), video("vp9", 720)}, u"Best resolution — 1080p H.264"_s},
        {{video("vp9", 1080), video("avc1")}, u"Best resolution — 1080p VP9"_s},
        {{video("vp9", 1080), video("h264", 720)}, u"Best resolution — 1080p VP9"_s},
    };
    for (const auto &[formats, best] : cases) {
        EXPECT_EQ(optionsFor(formats).first().title, best);
        EXPECT_FALSE(find(optionsFor(formats), OutputFormat::macCompatible));
    }
}

TEST(FormatOption, addsUpTheSizesOfPictureAndSound)
{
    VideoFormat bothSizes = video("avc1", 1080, 50);
    bothSizes.filesize_approx = 70;
    VideoFormat filmAsM4a = audio(u"m4a"_s, 999, 1000);
    filmAsM4a.vcodec = u"avc1"_s;
    filmAsM4a.height = 360;
    const std::tuple<QList<VideoFormat>, Size, Size> cases[] = {
        {{video("avc1", 1080, 50'000'000), audio(u"m4a"_s, 128, 3'000'000)}, 53'000'000, {}},
        {{video("vp9", 2160, 900), video("avc1", 1080, 50), audio(u"m4a"_s, 48, 1),
          audio(u"m4a"_s, 128, 3), audio(u"m4a"_s, 128, 7)},
         903,
         53},
        {{video("vp9", 1080), audio(u"webm"_s, 160, 3), audio(u"M4A"_s, 160, 3)}, {}, {}},
        {{video("vp9", 1080, 0), audio(u"m4a"_s, {}, 4)}, 4, {}},
        {{video("vp9", 1080, -9)}, {}, {}},
        {{video("vp9", 1080, most), audio(u"m4a"_s, 1, most)}, most, {}},
        {{bothSizes, audio(u"m4a"_s, 48, 3)}, 53, {}},
        {{video("vp9", 1080, 50), filmAsM4a, audio(u"m4a"_s, 48, 3)}, 53, 1003},
    };
    for (const auto &[formats, best, mac] : cases) {
        const auto options = optionsFor(formats);
        EXPECT_EQ(options[0].approximateBytes, best);
        const auto macOption = find(options, OutputFormat::macCompatible);
        EXPECT_EQ(macOption ? macOption->approximateBytes : std::nullopt, mac);
    }
}

TEST(FormatOption, estimatesProResByHeight)
{
    const std::tuple<qint64, double, Size> cases[] = {
        {480, 1, 9'125'000},     {481, 1, 13'750'000},
        {720, 1, 13'750'000},    {1080, 61, 1'677'500'000},
        {1440, 0.5, 24'562'500}, {2160, 1, 110'500'000},
        {2161, 1, 187'500'000},  {1080, 1e-8, {}},
        {1080, 0, {}},           {1080, -5, {}},
        {1080, 1e300, most},
    };
    for (const auto &[height, duration, bytes] : cases) {
        const auto options = optionsFor({video("avc1", height)}, duration);
        EXPECT_EQ(find(options, OutputFormat::proRes422)->approximateBytes, bytes)
            << height << " for " << duration;
    }
    QLocale::setDefault(QLocale::c());
    EXPECT_EQ(find(optionsFor({video("avc1", 1080)}, 61), OutputFormat::proRes422)->subtitle,
              u"Editing format (Final Cut / Resolve). ~1.68 GB at 1080p — far larger than MP4."_s);
    EXPECT_EQ(find(optionsFor({video("avc1", 1080)}), OutputFormat::proRes422)->subtitle,
              u"Editing format for Final Cut / Resolve. Files are very large."_s);
}

TEST(ByteCountText, picksUnitAndDigitsInTheFormOfTheLocale)
{
    constexpr ByteUnits estimate{ByteUnit::MB, ByteUnit::GB};
    constexpr ByteUnits fileSize{ByteUnit::KB, ByteUnit::TB};
    const QLocale c = QLocale::c();
    const QLocale german(QLocale::German);
    const std::tuple<qint64, ByteUnits, QLocale, const char *> cases[] = {
        {412'500'000, estimate, c, "412.5 MB"},
        {1'677'500'000, estimate, c, "1.68 GB"},
        {999'940'000, estimate, c, "999.9 MB"},
        {999'960'000, estimate, c, "1 GB"},
        {50'000'000, estimate, c, "50 MB"},
        {1'005'000'000, estimate, c, "1.01 GB"},
        {9'000, estimate, c, "0 MB"},
        {0, fileSize, c, "0 KB"},
        {999'499, fileSize, c, "999 KB"},
        {999'500, fileSize, c, "1 MB"},
        {999'996'000'000, fileSize, c, "1 TB"},
        {1'250'000'000'000, fileSize, c, "1.25 TB"},
        {std::numeric_limits<qint64>::max(), fileSize, c, "9223372.04 TB"},
        {1'677'500'000, estimate, german, "1,68 GB"},
        {6'750'500'000'000, estimate, german, "6750,5 GB"},
    };
    for (const auto &[bytes, units, locale, text] : cases)
        EXPECT_EQ(byteCountText(bytes, units, locale).toStdString(), text) << bytes;
}

TEST(OutputFormat, readsEveryStoredText)
{
    const std::pair<QStringView, OutputFormat> cases[] = {
        {u"bestResolution", OutputFormat::bestResolution},
        {u"macCompatible", OutputFormat::macCompatible},
        {u"proRes422", OutputFormat::proRes422},
        {u"audioMP3", OutputFormat::audioMP3},
        {u"maxQuality", OutputFormat::macCompatible},
        {u"h264Mp4", OutputFormat::macCompatible},
        {u"bestQuality", OutputFormat::bestResolution},
        {u"AudioMP3", OutputFormat::bestResolution},
        {u" audioMP3", OutputFormat::bestResolution},
        {u"", OutputFormat::bestResolution},
    };
    for (const auto &[stored, format] : cases)
        EXPECT_EQ(outputFormatFrom(stored), format) << stored.toString().toStdString();
}

} // namespace
} // namespace clipwren
