#include "ui/shell/RecordFacts.h"

#include "core/formats/ByteCountText.h"
#include "platform/text/DateTimeText.h"
#include "support/LibraryFixture.h"
#include "support/Printing.h"

#include <limits>

namespace clipwren::test {
namespace {

class RecordFactsTest : public LibraryFixture {
protected:
    RecordFactsTest() { QLocale::setDefault(QLocale(QStringLiteral("en_US"))); }
    ~RecordFactsTest() override { QLocale::setDefault(QLocale::system()); }

    DownloadRecord record = bareRecord(QStringLiteral("Talk"));
};

/// The value of a row; "(none)" when the row is left out.
QString valueOf(const QString &label, const DownloadRecord &record,
                const std::optional<MediaInspection> &inspection = std::nullopt)
{
    for (const RecordFact &fact : recordFacts(record, inspection)) {
        if (fact.label == label)
            return fact.value;
    }
    return QStringLiteral("(none)");
}

QStringList labelsOf(const QList<RecordFact> &facts)
{
    QStringList labels;
    for (const RecordFact &fact : facts)
        labels << fact.label;
    return labels;
}

TEST_F(RecordFactsTest, aMissingFileLeavesWhatTheRecordKnows)
{
    record.durationSeconds = 300;
    EXPECT_EQ(labelsOf(recordFacts(record, std::nullopt)),
              (QStringList{QStringLiteral("Name"), QStringLiteral("Kind"),
                           QStringLiteral("Duration"), QStringLiteral("Downloaded")}));
}

TEST_F(RecordFactsTest, namesEverythingInItsOrder)
{
    record = fullRecord(QStringLiteral("Talk"));
    const MediaInspection inspection{.sizeBytes = 48'200'000,
                                     .duration = 286.9,
                                     .container = QStringLiteral("mov,mp4"),
                                     .overallBitrateKbps = 1344,
                                     .videoCodec = QStringLiteral("h264"),
                                     .width = 1920,
                                     .height = 1080,
                                     .frameRate = 30000 / 1001.0,
                                     .audioCodec = QStringLiteral("aac")};
    const QString date = dateTimeText(record.createdAt);
    const QList<RecordFact> expected = {
        {QStringLiteral("Name"), QStringLiteral("Talk.mp4"), true, false},
        {QStringLiteral("Kind"), QStringLiteral("MPEG-4 movie")},
        {QStringLiteral("Size"), QStringLiteral("48.2 MB")},
        {QStringLiteral("Dimensions"), QStringLiteral("1920 × 1080"), false, true},
        {QStringLiteral("Codecs"), QStringLiteral("H.264 + AAC"), false, true},
        {QStringLiteral("Frame rate"), QStringLiteral("29.97 fps")},
        {QStringLiteral("Bitrate"), QStringLiteral("1,344 kbps")},
        {QStringLiteral("Duration"), QStringLiteral("4:47")},
        {QStringLiteral("Downloaded"), date},
        {QStringLiteral("Trim"), QStringLiteral("0:00 – 1:40")},
        {QStringLiteral("Clip length"), QStringLiteral("1:40")},
    };
    EXPECT_EQ(recordFacts(record, inspection), expected);
}

TEST_F(RecordFactsTest, namesTheContainer)
{
    const struct {
        const char *container; // null without an inspection
        const char *fileName;
        const char *kind;
    } rows[] = {
        {"mov,mp4,m4a,3gp,3g2,mj2", "a.mov", "MPEG-4 movie"},
        {"MP4", "a.mkv", "MPEG-4 movie"},
        {",matroska,webm", "a.webm", "Matroska video"},
        {"webm", "a", "WebM video"},
        {"mp3", "a", "MP3 audio"},
        {"flv,live_flv", "a", "FLV"},
        {",", "a", ","},
        {"", "a.mp4", "(none)"},
        {nullptr, "a.mp4", "MPEG-4 movie"},
        {nullptr, "a.M4V", "MPEG-4 movie"},
        {nullptr, "a.mov", "QuickTime movie"},
        {nullptr, "a.mp3", "MP3 audio"},
        {nullptr, "a.b.mkv", "MKV"},
        {nullptr, "a", "(none)"},
        {nullptr, "a.", "(none)"},
    };
    for (const auto &row : rows) {
        record.filePath = QStringLiteral("/v/") + QString::fromLatin1(row.fileName);
        std::optional<MediaInspection> inspection;
        if (row.container)
            inspection = MediaInspection{.container = QString::fromLatin1(row.container)};
        EXPECT_EQ(valueOf(QStringLiteral("Kind"), record, inspection),
                  QString::fromLatin1(row.kind))
            << (row.container ? row.container : row.fileName);
    }
}

TEST_F(RecordFactsTest, asksTheDiskForTheSizeWithoutAnInspection)
{
    record.filePath = path(QStringLiteral("a.mp4"));
    writeFile(QStringLiteral("a.mp4"), QByteArray(12'300, 'x'));
    EXPECT_EQ(valueOf(QStringLiteral("Size"), record), QStringLiteral("12 KB"));
    EXPECT_EQ(valueOf(QStringLiteral("Size"), record, MediaInspection{.sizeBytes = 12'300'000}),
              QStringLiteral("12.3 MB"));
}

TEST_F(RecordFactsTest, roundsDurations)
{
    const struct {
        double seconds;
        const char *text;
    } rows[] = {
        {7.4, "0:07"},     {7.5, "0:08"}, {3599.6, "1:00:00"},
        {3725, "1:02:05"}, {-1, "—"},     {std::numeric_limits<double>::infinity(), "—"},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(
            valueOf(QStringLiteral("Duration"), record, MediaInspection{.duration = row.seconds}),
            QString::fromUtf8(row.text))
            << row.seconds;
    }
}

TEST_F(RecordFactsTest, showsATrimOnlyWithBothEnds)
{
    record.trimStart = 10;
    EXPECT_EQ(valueOf(QStringLiteral("Trim"), record), QStringLiteral("(none)"));
    record.trimEnd = 75.5;
    EXPECT_EQ(valueOf(QStringLiteral("Trim"), record), QStringLiteral("0:10 – 1:16"));
    EXPECT_EQ(valueOf(QStringLiteral("Clip length"), record), QStringLiteral("1:06"));
}

TEST_F(RecordFactsTest, joinsTheCodecsThatThereAre)
{
    EXPECT_EQ(valueOf(QStringLiteral("Codecs"), record,
                      MediaInspection{.audioCodec = QStringLiteral("opus")}),
              QStringLiteral("Opus"));
    EXPECT_EQ(valueOf(QStringLiteral("Codecs"), record, MediaInspection{}),
              QStringLiteral("(none)"));
}

TEST(CompatVerdict, goesByTheBeginningOfTheVideoCodec)
{
    const struct {
        const char *codec;
        Pill::Tone tone;
        const char *text;
    } rows[] = {
        {"h264", Pill::Tone::Green, "Plays in QuickTime"},
        {"AVC1.64001F", Pill::Tone::Green, "Plays in QuickTime"},
        {"hevc", Pill::Tone::Blue, "macOS 10.13+"},
        {"h265", Pill::Tone::Blue, "macOS 10.13+"},
        {"vp9", Pill::Tone::Orange, "Needs VLC or IINA"},
        {"av1", Pill::Tone::Orange, "Needs VLC or IINA"},
        {"prores", Pill::Tone::Orange, "Needs VLC or IINA"},
    };
    for (const auto &row : rows) {
        const auto verdict = compatVerdict({.videoCodec = QString::fromLatin1(row.codec)});
        ASSERT_TRUE(verdict) << row.codec;
        EXPECT_EQ(verdict->tone, row.tone) << row.codec;
        EXPECT_EQ(verdict->text, QString::fromLatin1(row.text)) << row.codec;
    }
    EXPECT_FALSE(compatVerdict({.audioCodec = QStringLiteral("mp3")}));
}

} // namespace
} // namespace clipwren::test
