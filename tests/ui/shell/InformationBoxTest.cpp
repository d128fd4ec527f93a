#include "ui/shell/InformationBox.h"

#include "platform/text/DateTimeText.h"
#include "support/LibraryFixture.h"
#include "support/Printing.h"

#include <limits>

namespace clipwren::test {
namespace {

using namespace Qt::StringLiterals;

class RecordFactsTest : public testing::Test {
protected:
    RecordFactsTest() { QLocale::setDefault(QLocale(u"en_US"_s)); }
    ~RecordFactsTest() override { QLocale::setDefault(QLocale::system()); }

    /// The value of a row; "(none)" when the row is left out.
    QString valueOf(const QString &label,
                    const std::optional<MediaInspection> &inspection = std::nullopt) const
    {
        for (const RecordFact &fact : recordFacts(record, inspection)) {
            if (fact.label == label)
                return fact.value;
        }
        return u"(none)"_s;
    }

    DownloadRecord record = bareRecord(u"Talk"_s);
};

TEST_F(RecordFactsTest, namesEverythingInItsOrder)
{
    record = fullRecord(u"Talk"_s);
    const MediaInspection inspection{.sizeBytes = 48'200'000,
                                     .duration = 286.9,
                                     .container = u"mov,mp4"_s,
                                     .overallBitrateKbps = 1344,
                                     .videoCodec = u"h264"_s,
                                     .width = 1920,
                                     .height = 1080,
                                     .frameRate = 30000 / 1001.0,
                                     .audioCodec = u"aac"_s};
    const RecordFact date{u"Downloaded"_s, dateTimeText(record.createdAt)};
    const QList<RecordFact> expected = {
        {u"Name"_s, u"Talk.mp4"_s, true, false},
        {u"Kind"_s, u"MPEG-4 movie"_s},
        {u"Size"_s, u"48.2 MB"_s},
        {u"Dimensions"_s, u"1920 × 1080"_s, false, true},
        {u"Codecs"_s, u"H.264 + AAC"_s, false, true},
        {u"Frame rate"_s, u"29.97 fps"_s},
        {u"Bitrate"_s, u"1,344 kbps"_s},
        {u"Duration"_s, u"4:47"_s},
        date,
        {u"Trim"_s, u"0:00 – 1:40"_s},
        {u"Clip length"_s, u"1:40"_s},
    };
    EXPECT_EQ(recordFacts(record, inspection), expected);
    record.trimStart = std::nullopt; // which leaves no trim
    const QList<RecordFact> withoutInspection = {{u"Name"_s, u"Talk.mp4"_s, true, false},
                                                 {u"Kind"_s, u"MPEG-4 movie"_s},
                                                 {u"Duration"_s, u"3:33"_s},
                                                 date};
    EXPECT_EQ(recordFacts(record, std::nullopt), withoutInspection);
}

TEST_F(RecordFactsTest, namesTheContainer)
{
    const struct {
        const char *container; // null without an inspection
        const char *fileName, *kind;
    } rows[] = {
        {"mov,mp4,m4a,3gp,3g2,mj2", "a.mov", "MPEG-4 movie"},
        {"MP4", "a.mkv", "MPEG-4 movie"},
        {",matroska,webm", "a.webm", "Matroska video"},
        {"webm", "a", "WebM video"},
        {"flv,live_flv", "a", "FLV"},
        {",", "a", ","},
        {"", "a.mp4", "(none)"},
        {nullptr, "a.M4V", "MPEG-4 movie"},
        {nullptr, "a.mov", "QuickTime movie"},
        {nullptr, "a.mp3", "MP3 audio"},
        {nullptr, "a.b.mkv", "MKV"},
        {nullptr, "a.", "(none)"},
    };
    for (const auto &[container, fileName, kind] : rows) {
        record.filePath = u"/v/"_s + QString::fromLatin1(fileName);
        std::optional<MediaInspection> inspection;
        if (container)
            inspection = MediaInspection{.container = QString::fromLatin1(container)};
        EXPECT_EQ(valueOf(u"Kind"_s, inspection), QString::fromLatin1(kind))
            << (container ? container : fileName);
    }
}

TEST_F(RecordFactsTest, roundsTimesAndJoinsTheCodecsThatThereAre)
{
    const std::pair<double, const char *> rows[] = {
        {7.4, "0:07"},     {7.5, "0:08"}, {3599.6, "1:00:00"},
        {3725, "1:02:05"}, {-1, "—"},     {std::numeric_limits<double>::infinity(), "—"}};
    for (const auto &[seconds, text] : rows)
        EXPECT_EQ(valueOf(u"Duration"_s, MediaInspection{.duration = seconds}),
                  QString::fromUtf8(text));
    record.trimStart = 10;
    record.trimEnd = 75.5;
    EXPECT_EQ(valueOf(u"Trim"_s), u"0:10 – 1:16");
    EXPECT_EQ(valueOf(u"Clip length"_s), u"1:06");
    EXPECT_EQ(valueOf(u"Codecs"_s, MediaInspection{.audioCodec = u"opus"_s}), u"Opus");
    EXPECT_EQ(valueOf(u"Codecs"_s, MediaInspection{}), u"(none)");
}

TEST(CompatVerdictTest, goesByTheBeginningOfTheVideoCodec)
{
    EXPECT_EQ(compatVerdict({.videoCodec = u"AVC1.64001F"_s})->text, u"Plays in QuickTime");
    EXPECT_EQ(compatVerdict({.videoCodec = u"h265"_s})->text, u"macOS 10.13+");
    EXPECT_EQ(compatVerdict({.videoCodec = u"av1"_s})->text, u"Needs VLC or IINA");
    EXPECT_FALSE(compatVerdict({.audioCodec = u"mp3"_s}));
}

} // namespace
} // namespace clipwren::test
