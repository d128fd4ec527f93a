#include "core/media/MediaInspection.h"

#include "core/json/JsonObjectReader.h"
#include "core/media/FfprobeReport.h"

#include <gtest/gtest.h>

namespace clipwren {
namespace {

MediaInspection inspectionOf(const QByteArray &json)
{
    return MediaInspection::fromReport(FfprobeReport::fromJson(json));
}

MediaInspection inspectionOfStreams(const char *streams)
{
    return inspectionOf(QByteArray("{\"streams\": [") + streams + "]}");
}

TEST(MediaInspection, condensesAWholeReport)
{
    const auto inspection = inspectionOf(R"({
        "streams": [
            {"codec_type": "data", "codec_name": "bin_data", "width": 1},
            {"codec_name": "untyped"},
            {"codec_type": "video", "codec_name": "h264", "profile": "High", "width": 1920,
             "height": 1080, "pix_fmt": "yuv420p", "r_frame_rate": "25/1", "bit_rate": "1999999",
             "channels": null, "disposition": {"default": 1}},
            {"codec_type": "audio", "codec_name": "aac", "sample_rate": "44100", "channels": 2,
             "channel_layout": "stereo", "bit_rate": "127999"},
            {"codec_type": "Video", "codec_name": "other"}],
        "format": {"format_name": "mov,mp4", "format_long_name": "QuickTime", "duration": "12.5",
                   "size": "5000000000", "bit_rate": "128000"}})");
    const MediaInspection expected{.sizeBytes = 5'000'000'000,
                                   .duration = 12.5,
                                   .container = QStringLiteral("mov,mp4"),
                                   .overallBitrateKbps = 128,
                                   .videoCodec = QStringLiteral("h264"),
                                   .videoProfile = QStringLiteral("High"),
                                   .width = 1920,
                                   .height = 1080,
                                   .frameRate = 25,
                                   .pixelFormat = QStringLiteral("yuv420p"),
                                   .videoBitrateKbps = 1999,
                                   .audioCodec = QStringLiteral("aac"),
                                   .sampleRateHz = 44100,
                                   .channels = 2,
                                   .channelLayout = QStringLiteral("stereo"),
                                   .audioBitrateKbps = 127};
    EXPECT_EQ(inspection, expected);
    EXPECT_EQ(inspection.dimensions(), QString::fromUtf8("1920 × 1080"));
}

TEST(MediaInspection, leavesOutWhatCannotBeRead)
{
    EXPECT_EQ(inspectionOf("{}"), MediaInspection());
    EXPECT_EQ(inspectionOf(R"({"format": {"duration": "N/A", "size": "1e3", "bit_rate": " 5"}})"),
              MediaInspection());
}

TEST(MediaInspection, takesTheLastStreamAndKeepsOnlyTheRatesOfThoseBefore)
{
    const auto inspection = inspectionOfStreams(R"(
        {"codec_type": "video", "codec_name": "h264", "profile": "High", "width": 1920,
         "height": 1080, "pix_fmt": "yuv420p", "r_frame_rate": "25/1", "bit_rate": "9000"},
        {"codec_type": "audio", "codec_name": "aac", "sample_rate": "44100", "channels": 2,
         "channel_layout": "stereo", "bit_rate": "8000"},
        {"codec_type": "video", "codec_name": "mjpeg", "width": 0, "height": 500,
         "r_frame_rate": "0/0", "bit_rate": "N/A"},
        {"codec_type": "audio", "codec_name": "opus"})");
    const MediaInspection expected{.videoCodec = QStringLiteral("mjpeg"),
                                   .width = 0,
                                   .height = 500,
                                   .frameRate = 25,
                                   .videoBitrateKbps = 9,
                                   .audioCodec = QStringLiteral("opus"),
                                   .sampleRateHz = 44100,
                                   .audioBitrateKbps = 8};
    EXPECT_EQ(inspection, expected);
    EXPECT_EQ(inspection.dimensions(), std::nullopt);
}

TEST(MediaInspection, readsFrameRates)
{
    struct Case {
        const char *fraction;
        std::optional<double> rate;
    };
    const Case cases[] = {
        {"25/1", 25.0},
        {"30000/1001", 30000.0 / 1001},
        {"30000//1001", 30000.0 / 1001},
        {"0/0", std::nullopt},
        {"30", std::nullopt},
        {"30/", std::nullopt},
        {"a/b", std::nullopt},
        {"30/1/1", std::nullopt},
        {"30/-1", std::nullopt},
        {"30 / 1", std::nullopt},
        {"", std::nullopt},
    };
    for (const Case &c : cases) {
        const auto stream =
            QByteArray(R"({"codec_type": "video", "r_frame_rate": ")") + c.fraction + "\"}";
        EXPECT_EQ(inspectionOfStreams(stream.constData()).frameRate, c.rate) << c.fraction;
    }
}

TEST(MediaInspection, failsOnAWrongTypeAndNamesThePlace)
{
    struct Case {
        const char *json;
        const char *place;
    };
    const Case cases[] = {
        {R"({"format": []})", "format"},
        {R"({"format": {"size": 5}})", "format.size"},
        {R"({"format": {"format_long_name": 5}})", "format.format_long_name"},
        {R"({"streams": {}})", "streams"},
        {R"({"streams": [{}, {"channels": "2"}]})", "streams[1].channels"},
        {R"({"streams": [{"codec_type": "data", "width": 1.5}]})", "streams[0].width"},
    };
    for (const Case &c : cases) {
        try {
            FfprobeReport::fromJson(c.json);
            ADD_FAILURE() << c.json;
        } catch (const DecodingError &error) {
            EXPECT_TRUE(error.errorDescription().startsWith(QString::fromUtf8(c.place) + u':'))
                << error.what();
        }
    }
}

TEST(MediaInspection, namesCodecsForPeople)
{
    const std::pair<const char *, const char *> cases[] = {
        {"H264", "H.264"},        {"avc1", "H.264"},        {"hevc", "HEVC"},     {"h265", "HEVC"},
        {"av1", "AV1"},           {"av01.0", "AV1"},        {"vp9", "VP9"},       {"VP8", "VP8"},
        {"aac", "AAC"},           {"aac_latm", "AAC_LATM"}, {"opus", "Opus"},     {"mp3", "MP3"},
        {"mp3float", "MP3FLOAT"}, {"pcm_s16le", "PCM"},     {"prores", "PRORES"}, {"flac", "FLAC"},
    };
    for (const auto &[codec, name] : cases)
        EXPECT_EQ(MediaInspection::prettyCodec(QString::fromUtf8(codec)).toStdString(), name);
}

} // namespace
} // namespace clipwren
