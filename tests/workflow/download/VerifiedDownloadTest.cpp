#include "workflow/download/DownloaderFixture.h"

namespace clipwren::test {
namespace {

using namespace Qt::StringLiterals;

using VerifiedDownloadTest = DownloaderFixture;

TEST_F(VerifiedDownloadTest, keepsTheFilmWhoseSoundIsSaved)
{
    const QString film = u"Talk [id1].mp4"_s;
    const QString sound = u"Talk [id1].mp3"_s;
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
    EXPECT_EQ(files(), QStringList{u"Talk [id1].mp4"_s});

    fake.onDownload(u"rm \"${file%mp3}mp4\"\n"_s + FakeDownloader::defaultDownload());
    EXPECT_EQ(downloadedName(), u"Talk [id1].mp3"_s);
    EXPECT_EQ(files().size(), 1);
}

} // namespace
} // namespace clipwren::test
