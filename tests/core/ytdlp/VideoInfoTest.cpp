#include "core/ytdlp/VideoInfo.h"

#include "core/json/JsonObjectReader.h"

#include <QSet>

#include <gtest/gtest.h>

namespace clipwren {
namespace {

TEST(VideoInfo, readsEveryFieldAndIgnoresTheRest)
{
    const auto info = VideoInfo::fromJson(R"({
        "title": "Zürich \ud83d\ude00", "duration": 212.5, "thumbnail": "https://i/1.jpg",
        "uploader": "U", "webpage_url": "https://v/1", "subtitles": {"en": [1, {"title": 3}]},
        "formats": [
            {"format_id": "22", "vcodec": "avc1", "acodec": "none", "ext": "mp4", "height": 720,
             "width": 1280, "fps": 29.97, "filesize": 9007199254740993, "filesize_approx": null,
             "tbr": 5, "vbr": 4.5, "abr": 0, "fragments": ["x", 1]},
            {}
        ]})");
    EXPECT_EQ(info.title, QString::fromUtf8("Zürich 😀"));
    EXPECT_EQ(info.duration, 212.5);
    EXPECT_EQ(info.thumbnail, u"https://i/1.jpg");
    EXPECT_EQ(info.uploader, u"U");
    EXPECT_EQ(info.webpage_url, u"https://v/1");
    const VideoFormat first{.format_id = QStringLiteral("22"),
                            .vcodec = QStringLiteral("avc1"),
                            .acodec = QStringLiteral("none"),
                            .ext = QStringLiteral("mp4"),
                            .height = 720,
                            .width = 1280,
                            .fps = 29.97,
                            .filesize = 9007199254740993,
                            .tbr = 5,
                            .vbr = 4.5,
                            .abr = 0};
    EXPECT_EQ(info.formats, (QList<VideoFormat>{first, {}}));
}

TEST(VideoInfo, keepsAbsentApartFromEmpty)
{
    const auto nothing = VideoInfo::fromJson(R"({"title": null, "duration": null})");
    EXPECT_FALSE(nothing.title || nothing.duration || nothing.thumbnail || nothing.uploader
                 || nothing.webpage_url || nothing.formats);
    const auto empty = VideoInfo::fromJson(R"({"title": "", "duration": 212, "formats": []})");
    EXPECT_EQ(empty.title, QString());
    EXPECT_EQ(empty.duration, 212.0);
    EXPECT_EQ(empty.formats, QList<VideoFormat>());
}

TEST(VideoInfo, failsOnAnyWrongTypeAndNamesThePlace)
{
    struct Case {
        const char *json;
        const char *place;
    };
    const Case cases[] = {
        {R"({"title": 5})", "title"},
        {R"({"duration": "212"})", "duration"},
        {R"({"duration": true})", "duration"},
        {R"({"formats": {}})", "formats"},
        {R"({"formats": [{}, "x"]})", "formats[1]"},
        {R"({"formats": [{}, null]})", "formats[1]"},
        {R"({"formats": [{}, {}, {"height": "720"}]})", "formats[2].height"},
        {R"({"formats": [{"filesize": 1.5}]})", "formats[0].filesize"},
        {R"({"formats": [{"filesize": 1e19}]})", "formats[0].filesize"},
        {R"([])", "not a JSON object"},
        {R"({"title": "x"} y)", "Malformed JSON"},
        {"\n", "Malformed JSON"},
    };
    for (const Case &c : cases) {
        try {
            VideoInfo::fromJson(c.json);
            ADD_FAILURE() << c.json;
        } catch (const DecodingError &error) {
            EXPECT_NE(error.errorDescription().indexOf(QString::fromUtf8(c.place)), -1)
                << error.what();
        }
    }
}

TEST(VideoFormat, isAnIdentityOverAllItsFields)
{
    const auto read = [](const char *fields) {
        return VideoInfo::fromJson(QByteArray("{\"formats\": [{") + fields + "}]}")
            .formats->first();
    };
    // Each differs from the empty format in one field, twice.
    const char *texts[] = {"format_id", "vcodec", "acodec", "ext"};
    const char *numbers[] = {"height",          "width", "fps", "filesize",
                             "filesize_approx", "tbr",   "vbr", "abr"};
    QSet<VideoFormat> formats{VideoFormat()};
    for (int round = 0; round < 2; ++round) {
        for (const char *key : texts) {
            formats.insert(read(QByteArray("\"").append(key).append("\": \"\"")));
            formats.insert(read(QByteArray("\"").append(key).append("\": \"a\"")));
        }
        for (const char *key : numbers) {
            formats.insert(read(QByteArray("\"").append(key).append("\": 0")));
            formats.insert(read(QByteArray("\"").append(key).append("\": 1")));
        }
    }
    EXPECT_EQ(formats.size(), 25);
}

} // namespace
} // namespace clipwren
