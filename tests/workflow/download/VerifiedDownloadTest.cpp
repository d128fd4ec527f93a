#include "workflow/download/DownloaderFixture.h"

namespace clipwren::test {
namespace {

using namespace Qt::StringLiterals;

using VerifiedDownloadTest = DownloaderFixture;

TEST_F(VerifiedDownloadTest, KeepsTheFilmWhoseSoundIsSaved)
{
    const QString film = u"Talk [id1].mp4"_s;
    const QString sound = u"Talk [id1].mp3"_s;
    makeReady();
    download();
    // As the tool does where the page has no sound by itself; also when it fails.
    for (const auto *end : {"", "echo half > \"${file%mp3}mp4\"\n", "exit 1\n"}) {
        SCOPED_TRACE(end);
        QFile::remove(fake.downloadFolder() + u'/' + sound);
        fake.onDownload(u"rm \"${file%mp3}mp4\"\n"_s + FakeDownloader::defaultDownload() + u'\n'
                        + QString::fromLatin1(end));
        makeReady();
        view->setOutputFormatRaw(u"audioMP3"_s);
        view->start();
        ASSERT_TRUE(QTest::qWaitFor(
            [&] { return view->phase() == Phase::done || view->phase() == Phase::ready; }));
        QFile kept(fake.downloadFolder() + u'/' + film);
        ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
        EXPECT_EQ(kept.readAll(), "old\n");
        EXPECT_EQ(files(), (QStringList{sound, film}));
        EXPECT_EQ(QDir(fake.downloadFolder())
                      .entryList({u".clipwren-earlier*"_s}, QDir::Dirs | QDir::Hidden),
                  QStringList());
    }
}

TEST_F(VerifiedDownloadTest, LeavesTheSourceOfASoundToTheTool)
{
    const QString source = u"Talk [id1].mp4"_s;
    fake.onDownload(u"echo source > \"${file%mp3}mp4\"; echo '10%||NA||NA'; exec sleep 60"_s);
    makeReady();
    view->setOutputFormatRaw(u"audioMP3"_s);
    view->start();
    ASSERT_TRUE(QTest::qWaitFor([&] { return view->downloadProgress() > 0; }));
    view->cancelDownload();
    ASSERT_TRUE(reaches(*view, Phase::ready));
    EXPECT_EQ(files(), QStringList{source});

    fake.onDownload(u"rm \"${file%mp3}mp4\"\n"_s + FakeDownloader::defaultDownload());
    download();
    EXPECT_EQ(files(), QStringList{u"Talk [id1].mp3"_s});
}

} // namespace
} // namespace clipwren::test
