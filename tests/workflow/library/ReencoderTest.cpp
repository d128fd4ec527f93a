#include "workflow/library/Reencoder.h"

#include "core/library/DownloadStore.h"
#include "core/process/ToolEnvironment.h"
#include "support/FakeTool.h"
#include "support/LeakCheck.h"
#include "support/LibraryFixture.h"
#include "support/Printing.h"

#include <QTest>

namespace clipwren::test {
namespace {

QStringList loggedLines;

void collect(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    loggedLines << qFormatLogMessage(type, context, message);
}

class ReencoderTest : public LibraryFixture {
protected:
    ReencoderTest()
    {
        tools.add(QStringLiteral("yt-dlp"), QString());
        tools.add(QStringLiteral("ffprobe"), QStringLiteral("echo 10"));
        onConvert(QStringLiteral("echo new > \"$output\""));
        writeFile(QStringLiteral("Talk.mkv"), "old");
        store.add(recordOf(QStringLiteral("Talk")));
        environment.refresh();
    }

    void onConvert(const QString &script) const
    {
        tools.add(QStringLiteral("ffmpeg"),
                  QStringLiteral("for output in \"$@\"; do :; done\n") + script);
    }

    /// Lets a conversion wait until the test calls `release()`.
    void holdConversions() const
    {
        onConvert(QStringLiteral("while [ ! -e '%1' ]; do sleep 0.01; done; echo new > \"$output\"")
                      .arg(path(QStringLiteral("go"))));
    }
    void release() const { writeFile(QStringLiteral("go"), {}); }

    DownloadRecord recordOf(const QString &title) const
    {
        DownloadRecord record = fullRecord(title);
        record.filePath = path(QStringLiteral("Talk.mkv"));
        return record;
    }
    DownloadRecord record() const { return store.records().constFirst(); }

    static bool ends(const Reencoder &reencoder)
    {
        return QTest::qWaitFor([&] { return reencoder.reencodingIDs().isEmpty(); }, 10'000);
    }

    FakeTools tools;
    DownloadStore store{folder()};
    ToolEnvironment environment{{tools.directory()}, ToolEnvironment::Versions::Skip};
};

TEST_F(ReencoderTest, pointsTheRecordAtTheNewFile)
{
    DownloadRecord expected = record();
    Reencoder reencoder(store, environment);
    reencoder.convertToH264(record());
    EXPECT_TRUE(reencoder.reencodingIDs().contains(record().id));
    ASSERT_TRUE(ends(reencoder));
    expected.filePath = path(QStringLiteral("Talk — QT.mp4"));
    EXPECT_EQ(record(), expected);
    EXPECT_EQ(readFile(QStringLiteral("Talk — QT.mp4")), "new\n");
    EXPECT_EQ(readFile(QStringLiteral("Talk.mkv")), "old");
    EXPECT_TRUE(tools.arguments(QStringLiteral("ffmpeg")).contains(QStringLiteral("libx264")));
}

TEST_F(ReencoderTest, changesTheRecordAsItIsWhenTheFileIsThere)
{
    holdConversions();
    Reencoder reencoder(store, environment);
    DownloadRecord renamed = record();
    reencoder.convertToH264(renamed);
    renamed.title = QStringLiteral("New title");
    store.update(renamed);
    release();
    ASSERT_TRUE(ends(reencoder));
    EXPECT_EQ(record().title, QStringLiteral("New title"));
    EXPECT_EQ(record().filePath, path(QStringLiteral("Talk — QT.mp4")));
}

TEST_F(ReencoderTest, bringsNoRemovedRecordBack)
{
    holdConversions();
    Reencoder reencoder(store, environment);
    reencoder.convertToH264(record());
    store.clear();
    release();
    ASSERT_TRUE(ends(reencoder));
    EXPECT_TRUE(store.records().isEmpty());
}

TEST_F(ReencoderTest, refusesASecondRunOfOneRecordUntilTheFirstEnds)
{
    holdConversions();
    Reencoder reencoder(store, environment);
    reencoder.convertToH264(record());
    reencoder.convertToH264(record());
    release();
    ASSERT_TRUE(ends(reencoder));
    EXPECT_EQ(tools.runCount(QStringLiteral("ffmpeg")), 1);
    reencoder.convertToH264(record());
    ASSERT_TRUE(ends(reencoder));
    EXPECT_EQ(tools.runCount(QStringLiteral("ffmpeg")), 2);
}

TEST_F(ReencoderTest, runsRecordsOfOneFileOneAfterTheOther)
{
    // Fails where another conversion is at work.
    onConvert(QStringLiteral("mkdir '%1' && echo new > \"$output\" && sleep 0.05 && rmdir '%1'")
                  .arg(path(QStringLiteral("busy"))));
    store.add(recordOf(QStringLiteral("Once more")));
    Reencoder reencoder(store, environment);
    for (const DownloadRecord &record : QList<DownloadRecord>(store.records()))
        reencoder.convertToH264(record);
    EXPECT_EQ(reencoder.reencodingIDs().size(), 2);
    ASSERT_TRUE(ends(reencoder));
    for (const DownloadRecord &record : store.records())
        EXPECT_EQ(record.filePath, path(QStringLiteral("Talk — QT.mp4")));
}

TEST_F(ReencoderTest, logsAFailureAndLeavesTheRecord)
{
    const DownloadRecord before = record();
    loggedLines.clear();
    const auto previous = qInstallMessageHandler(collect);
    onConvert(QStringLiteral("echo 'no such codec' >&2; exit 3"));
    Reencoder reencoder(store, environment);
    reencoder.convertToH264(record());
    const bool ended = ends(reencoder);
    qInstallMessageHandler(previous);
    ASSERT_TRUE(ended);
    ASSERT_EQ(loggedLines.size(), 1);
    EXPECT_TRUE(loggedLines.first().startsWith(QStringLiteral("Re-encode failed: Process failed")));
    EXPECT_EQ(record(), before);
}

TEST_F(ReencoderTest, doesNothingWithoutFfprobe)
{
    ASSERT_TRUE(QFile::remove(tools.path(QStringLiteral("ffprobe"))));
    environment.refresh();
    Reencoder reencoder(store, environment);
    reencoder.convertToH264(record());
    EXPECT_TRUE(reencoder.reencodingIDs().isEmpty());
    EXPECT_EQ(tools.runCount(QStringLiteral("ffmpeg")), 0);
}

TEST_F(ReencoderTest, stopsWithItsOwner)
{
    holdConversions();
    {
        Reencoder reencoder(store, environment);
        reencoder.convertToH264(record());
        ASSERT_TRUE(eventually([this] { return tools.runCount(QStringLiteral("ffmpeg")) == 1; }));
    }
    EXPECT_TRUE(BackgroundTask::waitForAll(std::chrono::seconds(10)));
    EXPECT_EQ(record().filePath, path(QStringLiteral("Talk.mkv")));
}

} // namespace
} // namespace clipwren::test
