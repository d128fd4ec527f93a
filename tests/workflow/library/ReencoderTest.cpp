#include "workflow/library/Reencoder.h"

#include "core/library/DownloadStore.h"
#include "core/process/ToolEnvironment.h"
#include "support/FakeTool.h"
#include "support/LeakCheck.h"
#include "support/LibraryFixture.h"
#include "support/Printing.h"
#include "support/RecordingDesktop.h"

#include <QTest>

namespace clipwren::test {
namespace {

using namespace Qt::StringLiterals;

class ReencoderTest : public LibraryFixture {
protected:
    ReencoderTest()
    {
        tools.add(u"yt-dlp"_s, QString());
        tools.add(u"ffprobe"_s, u"echo 10"_s);
        onConvert(u"echo new > \"$output\""_s);
        writeFile(u"Talk.mkv"_s, "old");
        store.add(recordOf(u"Talk"_s));
        environment.refresh();
    }

    void onConvert(const QString &script) const
    {
        tools.add(u"ffmpeg"_s, u"for output in \"$@\"; do :; done\n"_s + script);
    }

    /// Lets a conversion wait until the test calls `release()`.
    void holdConversions() const
    {
        onConvert(u"while [ ! -e '%1' ]; do sleep 0.01; done; echo new > \"$output\""_s.arg(
            path(u"go"_s)));
    }
    void release() const { writeFile(u"go"_s, {}); }

    DownloadRecord recordOf(const QString &title) const
    {
        DownloadRecord record = fullRecord(title);
        record.filePath = path(u"Talk.mkv"_s);
        return record;
    }
    DownloadRecord record() const { return store.records().constFirst(); }

    bool ends() const
    {
        return QTest::qWaitFor([this] { return reencoder->reencodingIDs().isEmpty(); }, 10'000);
    }

    FakeTools tools;
    DownloadStore store{folder()};
    RecordingDesktop desktop;
    ToolEnvironment environment{{tools.directory()}, ToolEnvironment::Versions::Skip};
    std::optional<Reencoder> reencoder{std::in_place, store, environment, desktop};
};

TEST_F(ReencoderTest, pointsTheRecordAtTheNewFile)
{
    DownloadRecord expected = record();
    reencoder->convertToH264(record());
    EXPECT_TRUE(reencoder->reencodingIDs().contains(record().id));
    EXPECT_EQ(desktop.activities, 1);
    ASSERT_TRUE(ends());
    EXPECT_EQ(desktop.activities, 0);
    EXPECT_EQ(desktop.notifications,
              QStringList{u"Re-encode complete | Talk — QT.mp4 | Talk — QT.mp4"_s});
    expected.filePath = path(u"Talk — QT.mp4"_s);
    EXPECT_EQ(record(), expected);
    EXPECT_EQ(readFile(u"Talk — QT.mp4"_s), "new\n");
    EXPECT_EQ(readFile(u"Talk.mkv"_s), "old");
    EXPECT_TRUE(tools.arguments(u"ffmpeg"_s).contains(u"libx264"_s));
}

TEST_F(ReencoderTest, keepsATitleThatWasChangedMeanwhileAndBringsNoRemovedRecordBack)
{
    holdConversions();
    DownloadRecord renamed = record();
    reencoder->convertToH264(renamed);
    renamed.title = u"New title"_s;
    store.update(renamed);
    release();
    ASSERT_TRUE(ends());
    EXPECT_EQ(record().title, u"New title"_s);
    EXPECT_EQ(record().filePath, path(u"Talk — QT.mp4"_s));

    reencoder->convertToH264(record());
    store.clear();
    ASSERT_TRUE(ends());
    EXPECT_TRUE(store.records().isEmpty());
}

TEST_F(ReencoderTest, refusesASecondRunOfOneRecordUntilTheFirstEnds)
{
    holdConversions();
    reencoder->convertToH264(record());
    reencoder->convertToH264(record());
    release();
    ASSERT_TRUE(ends());
    EXPECT_EQ(tools.runCount(u"ffmpeg"_s), 1);
    reencoder->convertToH264(record());
    ASSERT_TRUE(ends());
    EXPECT_EQ(tools.runCount(u"ffmpeg"_s), 2);
}

TEST_F(ReencoderTest, runsRecordsOfOneFileOneAfterTheOther)
{
    // Fails where another conversion is at work.
    onConvert(
        u"mkdir '%1' && echo new > \"$output\" && sleep 0.05 && rmdir '%1'"_s.arg(path(u"busy"_s)));
    store.add(recordOf(u"Once more"_s));
    for (const DownloadRecord &record : QList<DownloadRecord>(store.records()))
        reencoder->convertToH264(record);
    EXPECT_EQ(reencoder->reencodingIDs().size(), 2);
    ASSERT_TRUE(ends());
    for (const DownloadRecord &record : store.records())
        EXPECT_EQ(record.filePath, path(u"Talk — QT.mp4"_s));
}

TEST_F(ReencoderTest, replacesNoCopyOfAnotherFilm)
{
    onConvert(u"echo \"$*\" > \"$output\""_s);
    DownloadRecord other = recordOf(u"Other"_s);
    other.filePath = path(u"Talk.mov"_s);
    writeFile(u"Talk.mov"_s, "other");
    store.add(other);
    for (const DownloadRecord &record : QList<DownloadRecord>(store.records()))
        reencoder->convertToH264(record);
    ASSERT_TRUE(ends());
    EXPECT_EQ(store.records().at(0).filePath, path(u"Talk — QT.mp4"_s));
    EXPECT_EQ(store.records().at(1).filePath, path(u"Talk — QT 2.mp4"_s));
    EXPECT_TRUE(readFile(u"Talk — QT.mp4"_s).contains("Talk.mov"));

    // Nor one that no record names any more.
    store.clear();
    store.add(recordOf(u"Again"_s));
    reencoder.emplace(store, environment, desktop);
    reencoder->convertToH264(record());
    ASSERT_TRUE(ends());
    EXPECT_EQ(record().filePath, path(u"Talk — QT 3.mp4"_s));
}

TEST_F(ReencoderTest, logsAFailureAndLeavesTheRecord)
{
    const DownloadRecord before = record();
    static QStringList logged;
    const auto previous = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext &, const QString &line) { logged << line; });
    onConvert(u"echo 'no such codec' >&2; exit 3"_s);
    reencoder->convertToH264(record());
    EXPECT_TRUE(ends());
    qInstallMessageHandler(previous);
    EXPECT_EQ(logged.filter(u"Re-encode failed: Process failed"_s).size(), 1);
    EXPECT_TRUE(desktop.notifications.value(0).startsWith(u"Re-encode failed | Process failed"));
    EXPECT_EQ(record(), before);
}

TEST_F(ReencoderTest, doesNothingWithoutFfprobe)
{
    ASSERT_TRUE(QFile::remove(tools.path(u"ffprobe"_s)));
    environment.refresh();
    reencoder->convertToH264(record());
    EXPECT_TRUE(reencoder->reencodingIDs().isEmpty());
    EXPECT_EQ(tools.runCount(u"ffmpeg"_s), 0);
}

TEST_F(ReencoderTest, stopsWithItsOwner)
{
    holdConversions();
    reencoder->convertToH264(record());
    ASSERT_TRUE(eventually([this] { return tools.runCount(u"ffmpeg"_s) == 1; }));
    reencoder.reset();
    EXPECT_TRUE(BackgroundTask::waitForAll(std::chrono::seconds(10)));
    EXPECT_EQ(record().filePath, path(u"Talk.mkv"_s));
}

} // namespace
} // namespace clipwren::test
