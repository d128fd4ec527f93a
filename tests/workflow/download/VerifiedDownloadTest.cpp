#include "workflow/download/DownloaderFixture.h"

namespace clipwren::test {
namespace {

using namespace Qt::StringLiterals;

class VerifiedDownloadTest : public DownloaderFixture {
protected:
    /// Saves the sound after an attempt that found no file in the folder; returns its name.
    QString saveSoundAgain(int startedSecondsAgo = 0)
    {
        const ToolEnvironment &tools = *fake.toolEnvironment;
        VerifiedDownload second{.downloader = {*tools.ytDlpPath(), *tools.ffmpegPath()},
                                .inspector = {*tools.ffmpegPath(), *tools.ffprobePath()},
                                .address = address,
                                .outputDirectory = fake.downloadFolder(),
                                .format = OutputFormat::audioMP3,
                                .info = view->info(),
                                .records = fake.store.records(),
                                .earlier = {.filesBefore = QSet<QString>()}};
        second.startedAt = second.startedAt.addSecs(-startedSecondsAgo);
        return QFileInfo(second.run({}, {}).filePath).fileName();
    }

    const QString film = u"Talk [id1].mp4"_s;
    const QString sound = u"Talk [id1].mp3"_s;
};

TEST_F(VerifiedDownloadTest, keepsTheFilmWhoseSoundIsSaved)
{
    // As the tool does where the page has no sound by itself; also when it fails, and with a film
    // that was taken off the list.
    const std::pair<const char *, bool> cases[] = {
        {"", true}, {"echo half > \"${file%mp3}mp4\"\n", true}, {"exit 1\n", true}, {"", false}};
    for (const auto &[end, recorded] : cases) {
        SCOPED_TRACE(end);
        startOver();
        fake.onDownload(FakeDownloader::defaultDownload());
        makeReady(u"bestResolution"_s);
        download();
        if (!recorded)
            fake.store.clear();
        fake.onDownload(u"rm \"${file%mp3}mp4\"\n"_s + FakeDownloader::defaultDownload() + u'\n'
                        + QString::fromLatin1(end));
        makeReady(u"audioMP3"_s);
        view->start();
        ASSERT_TRUE(QTest::qWaitFor(
            [&] { return view->phase() == Phase::done || view->phase() == Phase::ready; }));
        EXPECT_EQ(read(film), "old\n");
        view->resetAll();
        EXPECT_EQ(allFiles(), (QStringList{sound, film}));
    }
}

TEST_F(VerifiedDownloadTest, leavesTheSourceOfASoundToTheTool)
{
    fake.onDownload(u"echo source > \"${file%mp3}mp4\"; echo '10%||NA||NA'; exec sleep 60"_s);
    makeReady(u"audioMP3"_s);
    ASSERT_TRUE(startAndProgress());
    cancel();
    EXPECT_EQ(files(), QStringList{film});

    fake.onDownload(u"rm \"${file%mp3}mp4\"\n"_s + FakeDownloader::defaultDownload());
    download();
    EXPECT_EQ(files(), QStringList{sound});
}

TEST_F(VerifiedDownloadTest, whatCameWhileItWaitedIsNotItsOwn)
{
    makeReady(u"audioMP3"_s);
    download();
    fake.store.clear();
    fake.onProbe({}, 0, u"mp3"_s, 7.5);
    EXPECT_EQ(saveSoundAgain(60), u"Talk 2 [id1].mp3"_s);
    EXPECT_EQ(files(), (QStringList{u"Talk 2 [id1].mp3"_s, sound}));
}

TEST_F(VerifiedDownloadTest, aRecordedFileIsNoLeftoverOfAnEarlierAttempt)
{
    makeReady(u"audioMP3"_s);
    download();
    fake.onProbe({}, 0, u"mpegts"_s);
    EXPECT_EQ(saveSoundAgain(), u"Talk 2 [id1].mp3"_s);

    startOver();
    fake.onProbe(u"vp9"_s, 2160);
    makeReady(u"bestResolution"_s);
    download();
    fake.onDownload(u"rm \"${file%mp3}mp4\"\n"_s + FakeDownloader::defaultDownload());
    EXPECT_EQ(saveSoundAgain(), sound);
    EXPECT_EQ(read(film), "old\n");
}

} // namespace
} // namespace clipwren::test
