#include "core/media/MediaInspection.h"

#include "core/json/JsonObjectReader.h"
#include "core/media/FfprobeReport.h"

#include <gtest/gtest.h>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

MediaInspection inspectionOf(const QByteArray &json)
{
    return MediaInspection::fromReport(FfprobeReport::fromJson(json));
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
                                   .container = u"mov,mp4"_s,
                                   .overallBitrateKbps = 128,
                                   .videoCodec = u"h264"_s,
                                   .videoProfile = u"High"_s,
                                   .width = 1920,
                                   .height = 1080,
                                   .frameRate = 25,
                                   .pixelFormat = u"yuv420p"_s,
                                   .videoBitrateKbps = 1999,
                                   .audioCodec = u"aac"_s,
                                   .sampleRateHz = 44100,
                                   .channels = 2,
                                   .channelLayout = u"stereo"_s,
                                   .audioBitrateKbps = 127};
    EXPECT_EQ(inspection, expected);
    EXPECT_EQ(inspection.dimensions(), u"1920 × 1080"_s);
}

TEST(MediaInspection, leavesOutWhatCannotBeRead)
{
    EXPECT_EQ(inspectionOf("{}"), MediaInspection());
    EXPECT_EQ(inspectionOf(R"({"format": {"duration": "N/A", "size": "1e3", "bit_rate": " 5"}})"),
              MediaInspection());
}

TEST(MediaInspection, takesTheLastStreamAndKeepsOnlyTheRatesOfThoseBefore)
{
    const auto inspection = inspectionOf(R"({"streams": [
        {"codec_type": "video", "codec_name": "h264", "profile": "High", "width": 1920,
         "height": 1080, "pix_fmt": "yuv420p", "r_frame_rate": "25/1", "bit_rate": "9000"},
        {"codec_type": "audio", "codec_name": "aac", "sample_rate": "44100", "channels": 2,
         "channel_layout": "stereo", "bit_rate": "8000"},
        {"codec_type": "video", "codec_name": "mjpeg", "width": 0, "height": 500,
         "r_frame_rate": "0/0", "bit_rate": "N/A"},
        {"codec_type": "audio", "codec_name": "opus"}]})");
    const MediaInspection expected{.videoCodec = u"mjpeg"_s,
                                   .width = 0,
                                   .height = 500,
                                   .frameRate = 25,
                                   .videoBitrateKbps = 9,
                                   .audioCodec = u"opus"_s,
                                   .sampleRateHz = 44100,
                                   .audioBitrateKbps = 8};
    EXPECT_EQ(inspection, expected);
    EXPECT_EQ(inspection.dimensions(), std::nullopt);
    const char *flat = R"({"streams": [{"codec_type": "video", "width": 500, "height": 0}]})";
    EXPECT_EQ(inspectionOf(flat).dimensions(), std::nullopt);
}

TEST(MediaInspection, readsFrameRates)
{
    const auto rateOf = [](const QByteArray &fraction) {
        return inspectionOf(R"({"streams": [{"codec_type": "video", "r_frame_rate": ")" + fraction
                            + "\"}]}")
            .frameRate;
    };
    EXPECT_EQ(rateOf("30000/1001"), 30000.0 / 1001);
    EXPECT_EQ(rateOf("30000//1001"), 30000.0 / 1001);
    for (const char *none : {"0/0", "30", "30/", "a/b", "30/1/1", "30/-1", "30 / 1", ""})
        EXPECT_EQ(rateOf(none), std::nullopt) << none;
}

TEST(MediaInspection, failsOnAWrongType)
{
    for (const char *json : {R"({"format": []})", R"({"format": {"size": 5}})",
                             R"({"streams": {}})", R"({"streams": [{}, {"channels": "2"}]})",
                             R"({"streams": [{"codec_type": "data", "width": 1.5}]})"})
        EXPECT_THROW(FfprobeReport::fromJson(json), DecodingError) << json;
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
