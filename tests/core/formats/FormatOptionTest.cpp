#include "core/formats/FormatOption.h"

#include "core/ytdlp/VideoInfo.h"

#include <QLocale>

#include <gtest/gtest.h>
#include <limits>

namespace clipwren {
namespace {

VideoFormat video(const char *codec, std::optional<qint64> height = std::nullopt,
                  std::optional<qint64> size = std::nullopt)
{
    return {.vcodec = QString::fromUtf8(codec), .height = height, .filesize = size};
}

VideoFormat audio(const char *extension, std::optional<double> rate,
                  std::optional<qint64> approximateSize)
{
    return {.vcodec = QStringLiteral("none"),
            .acodec = QStringLiteral("mp4a.40.2"),
            .ext = QString::fromUtf8(extension),
            .filesize_approx = approximateSize,
            .abr = rate};
}

QList<FormatOption> optionsFor(const QList<VideoFormat> &formats,
                               std::optional<double> duration = std::nullopt)
{
    return FormatOption::options(VideoInfo{.duration = duration, .formats = formats});
}

const FormatOption *find(const QList<FormatOption> &options, OutputFormat kind)
{
    for (const FormatOption &option : options) {
        if (option.kind == kind)
            return &option;
    }
    return nullptr;
}

TEST(FormatOption, offersThreeChoicesForAnUnknownVideo)
{
    const QList<FormatOption> expected{
        {OutputFormat::bestResolution, QStringLiteral("Best resolution"),
         QStringLiteral("Highest available stream."), CompatLevel::needsThirdParty, std::nullopt},
        {OutputFormat::proRes422, QStringLiteral("Apple ProRes 422"),
         QStringLiteral("Editing format for Final Cut / Resolve. Files are very large."),
         CompatLevel::proRes, std::nullopt},
        {OutputFormat::audioMP3, QStringLiteral("Audio only (MP3)"),
         QStringLiteral("Strip video, best VBR audio."), CompatLevel::audioOnly, std::nullopt},
    };
    EXPECT_EQ(FormatOption::options(std::nullopt), expected);
    EXPECT_EQ(FormatOption::options(VideoInfo{.duration = 10}), expected);
    EXPECT_EQ(optionsFor({}), expected);
    EXPECT_EQ(optionsFor({video("NONE", 1080, 5), video("", 720, 5)}, 10), expected);
}

TEST(FormatOption, describesTheBestResolutionByItsCodec)
{
    struct Case {
        const char *codec;
        const char *title;
        const char *subtitle;
        CompatLevel compat;
    };
    const char *everywhere = "Plays in QuickTime, CapCut, Final Cut, iMovie.";
    const char *modern = "Plays on modern macOS. May not play in older tools.";
    const Case cases[] = {
        {"AVC1.64001F", "Best resolution — 1080p H.264", everywhere, CompatLevel::macNative},
        {"h264", "Best resolution — 1080p H.264", everywhere, CompatLevel::macNative},
        {"avc3.4D401F", "Best resolution — 1080p AVC3.4D401F", everywhere, CompatLevel::macNative},
        {"hev1.1.6.L120.90", "Best resolution — 1080p HEVC", modern, CompatLevel::macModern},
        {"hvc1", "Best resolution — 1080p HEVC", modern, CompatLevel::macModern},
        {"vp09.00.40.08", "Best resolution — 1080p VP9",
         "Will only play in VLC or IINA. QuickTime can't decode VP9.",
         CompatLevel::needsThirdParty},
        {"vp8", "Best resolution — 1080p VP8",
         "Will only play in VLC or IINA. QuickTime can't decode VP8.",
         CompatLevel::needsThirdParty},
        {"av01.0.08M.08", "Best resolution — 1080p AV1",
         "Will only play in VLC or IINA. QuickTime can't decode AV1.",
         CompatLevel::needsThirdParty},
        {"theora%1", "Best resolution — 1080p THEORA%1",
         "Will only play in VLC or IINA. QuickTime can't decode THEORA%1.",
         CompatLevel::needsThirdParty},
    };
    for (const Case &c : cases) {
        const FormatOption option = optionsFor({video(c.codec, 1080)}).first();
        EXPECT_EQ(option.title.toStdString(), c.title);
        EXPECT_EQ(option.subtitle.toStdString(), c.subtitle);
        EXPECT_EQ(option.compat, c.compat) << c.codec;
    }
    // Without a height nothing can be said but the class.
    const FormatOption unmeasured = optionsFor({video("avc1")}).first();
    EXPECT_EQ(unmeasured.subtitle, u"Highest available stream.");
    EXPECT_EQ(unmeasured.compat, CompatLevel::macNative);
}

TEST(FormatOption, offersMacCompatibleOnlyBelowTheBestHeight)
{
    struct Case {
        QList<VideoFormat> formats;
        const char *title; ///< null: not offered
    };
    const Case cases[] = {
        {{video("vp9", 2160), video("avc1", 720), video("avc1", 1080)},
         "Mac Compatible — 1080p H.264"},
        {{video("av01", 1080), video("avc1", 1080)}, nullptr},
        {{video("avc1", 1080), video("vp9", 720)}, nullptr},
        {{video("vp9", 1080), video("avc1")}, nullptr},
        {{video("vp9", 1080), video("h264", 720)}, nullptr},
    };
    for (const Case &c : cases) {
        const auto options = optionsFor(c.formats);
        const FormatOption *option = find(options, OutputFormat::macCompatible);
        ASSERT_EQ(option != nullptr, c.title != nullptr);
        if (option) {
            EXPECT_EQ(option, &options[1]);
            EXPECT_EQ(option->title.toStdString(), c.title);
            EXPECT_EQ(option->compat, CompatLevel::macNative);
        }
    }
    EXPECT_EQ(optionsFor({video("av01", 1080), video("avc1", 1080)}).first().title,
              u"Best resolution — 1080p AV1");
}

TEST(FormatOption, addsUpTheSizesOfPictureAndSound)
{
    constexpr qint64 most = std::numeric_limits<qint64>::max();
    struct Case {
        QList<VideoFormat> formats;
        std::optional<qint64> best;
        std::optional<qint64> mac;
    };
    const Case cases[] = {
        {{video("avc1", 1080, 50'000'000), audio("m4a", 128, 3'000'000)}, 53'000'000, {}},
        {{video("vp9", 2160, 900), video("avc1", 1080, 50), audio("m4a", 48, 1),
          audio("m4a", 128, 3), audio("m4a", 128, 7)},
         903,
         53},
        {{video("vp9", 1080), audio("webm", 160, 3), audio("M4A", 160, 3)}, {}, {}},
        {{video("vp9", 1080, 0), audio("m4a", {}, 4)}, 4, {}},
        {{video("vp9", 1080, -9)}, {}, {}},
        {{video("vp9", 1080, most), audio("m4a", 1, most)}, most, {}},
    };
    for (const Case &c : cases) {
        const auto options = optionsFor(c.formats);
        EXPECT_EQ(options[0].approximateBytes, c.best);
        const FormatOption *mac = find(options, OutputFormat::macCompatible);
        EXPECT_EQ(mac ? mac->approximateBytes : std::nullopt, c.mac);
    }
}

TEST(FormatOption, estimatesProResByHeight)
{
    struct Case {
        qint64 height;
        double duration;
        std::optional<qint64> bytes;
    };
    const Case cases[] = {
        {480, 1, 9'125'000},
        {481, 1, 13'750'000},
        {720, 1, 13'750'000},
        {1080, 61, 1'677'500'000},
        {1440, 0.5, 24'562'500},
        {2160, 1, 110'500'000},
        {2161, 1, 187'500'000},
        {1080, 1e-8, std::nullopt},
        {1080, 0, std::nullopt},
        {1080, -5, std::nullopt},
        {1080, 1e300, std::numeric_limits<qint64>::max()},
    };
    for (const Case &c : cases) {
        const auto options = optionsFor({video("avc1", c.height)}, c.duration);
        EXPECT_EQ(find(options, OutputFormat::proRes422)->approximateBytes, c.bytes)
            << c.height << " for " << c.duration;
    }
    QLocale::setDefault(QLocale::c());
    const auto known = optionsFor({video("avc1", 1080)}, 61);
    EXPECT_EQ(find(known, OutputFormat::proRes422)->subtitle,
              u"Editing format (Final Cut / Resolve). ~1.68 GB at 1080p — far larger than MP4.");
    const auto endless = optionsFor({video("avc1", 1080)});
    EXPECT_EQ(find(endless, OutputFormat::proRes422)->subtitle,
              u"Editing format for Final Cut / Resolve. Files are very large.");
}

} // namespace
} // namespace clipwren
