#include "core/ytdlp/VideoInfo.h"

#include "core/json/JsonObjectReader.h"
#include "support/Printing.h"

#include <gtest/gtest.h>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

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
    EXPECT_EQ(info.title, u"Zürich 😀"_s);
    EXPECT_EQ(info.duration, 212.5);
    EXPECT_EQ(info.thumbnail, u"https://i/1.jpg");
    EXPECT_EQ(info.uploader, u"U");
    EXPECT_EQ(info.webpage_url, u"https://v/1");
    const VideoFormat first{.format_id = u"22"_s,
                            .vcodec = u"avc1"_s,
                            .acodec = u"none"_s,
                            .ext = u"mp4"_s,
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

TEST(VideoInfo, keepsOnlyAsMuchOfATextAsAWindowCanShow)
{
    const QString family = u"👨‍👩‍👧"_s; // of 8 UTF-16 units
    const auto decoded = [](const QString &fields) {
        return VideoInfo::fromJson((u"{%1}"_s.arg(fields)).toUtf8());
    };
    const std::pair<QString, QString> titles[] = {
        {u"x"_s.repeated(2'000), u"x"_s.repeated(2'000)},
        {u"x"_s.repeated(1'000'000), u"x"_s.repeated(2'000)},
        {family.repeated(250), family.repeated(250)},
        {u"abc"_s + family.repeated(250), u"abc"_s + family.repeated(249)},
        {u"x"_s + u"\u0301"_s.repeated(5'000), u"x"_s + u"\u0301"_s.repeated(1'999)},
        {u"x"_s + u"\U000e0061"_s.repeated(5'000), u"x"_s + u"\U000e0061"_s.repeated(999)},
    };
    for (const auto &[title, kept] : titles) {
        const auto info = decoded(u"\"title\":\"%1\",\"uploader\":\"%1\""_s.arg(title));
        EXPECT_EQ(info.title, kept);
        EXPECT_EQ(info.uploader, kept);
    }
    // Half an address leads somewhere else.
    const auto info = decoded(u"\"thumbnail\":\"http://%1\",\"webpage_url\":\"http://%2\","
                              "\"formats\":[{\"vcodec\":\"%2\"}]"_s.arg(u"x"_s.repeated(50'000),
                                                                        u"x"_s.repeated(100'000)));
    EXPECT_EQ(info.thumbnail->size(), 50'007);
    EXPECT_FALSE(info.webpage_url);
    EXPECT_EQ(info.formats->first().vcodec->size(), 100);
}

TEST(VideoInfo, failsOnAnyWrongTypeAndNamesThePlace)
{
    const std::pair<const char *, const char *> cases[] = {
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
    for (const auto &[json, place] : cases) {
        try {
            VideoInfo::fromJson(json);
            ADD_FAILURE() << json;
        } catch (const DecodingError &error) {
            EXPECT_TRUE(error.errorDescription().contains(QString::fromUtf8(place)))
                << error.what();
        }
    }
}

} // namespace
} // namespace clipwren
