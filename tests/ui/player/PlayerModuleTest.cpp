#include "ui/player/PlayerModule.h"

#include "AnsweringServer.h"
#include "NumberedVideo.h"
#include "PlayerStage.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace clipwren {
namespace {

using namespace test;

struct PlayerModuleTest : testing::Test {
    QTemporaryDir folder;

    static void SetUpTestSuite() { PlayerStage::warmUp(); }

    QUrl file(const QString &name, const QByteArray &content) const
    {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return QUrl::fromLocalFile(file.fileName());
    }
    static QString failureOf(MediaPlayer &player, const QUrl &url)
    {
        player.load(url);
        EXPECT_TRUE(waitUntil([&] { return player.status() == MediaPlayer::Status::Failed; }))
            << url.toString().toStdString();
        return player.failure();
    }
};

TEST_F(PlayerModuleTest, saysWhyAStreamCannotBePlayed)
{
    const AnsweringServer missing("404 Not Found");
    const AnsweringServer forbidden("403 Forbidden");
    const AnsweringServer broken("503 Service Unavailable");
    const AnsweringServer page("200 OK", "<html><body>Sign in first</body></html>");
    struct Case {
        QUrl url;
        const char16_t *sentence;
    };
    const AnsweringServer silent({});
    PlayerModule module({QStringLiteral(CLIPWREN_PLAYER_FOLDER)}, std::chrono::milliseconds(300));
    std::unique_ptr<MediaPlayer> player;
    for (const auto &[url, sentence] :
         {Case{missing.url(), u"The server has no video at this address (404)."},
          Case{forbidden.url(), u"The server does not allow access to this video (403)."},
          Case{broken.url(), u"The server has a fault and cannot send the video."},
          Case{silent.url(), u"The video's server took too long to answer."},
          Case{page.url(), u"This is not a video."},
          Case{AnsweringServer::closedUrl(), u"Cannot connect to the video's server."},
          Case{file(QStringLiteral("notes.mp4"), "no video at all"), u"This is not a video."},
          Case{file(QStringLiteral("list.m3u"), "#EXTM3U\n/etc/passwd\n"), u"This is not a video."},
          Case{file(QStringLiteral("empty.mp4"), {}), u"This is not a video."},
          Case{QUrl::fromLocalFile(folder.path()), u"This is not a video."},
          Case{QUrl::fromLocalFile(folder.filePath(QStringLiteral("gone.mp4"))),
               u"The file does not exist."},
          Case{QUrl(QStringLiteral("edl:///etc/passwd")),
               u"Videos cannot be played from this kind of address."}}) {
        // Beside the one before, which ends in the background.
        player = module.makePlayer();
        EXPECT_EQ(failureOf(*player, url).toStdString(), QString::fromUtf16(sentence).toStdString())
            << url.toString().toStdString();
    }

    // A player that failed can still play the next stream.
    player->load(numberedVideo(1));
    EXPECT_TRUE(waitUntil([&] { return player->status() == MediaPlayer::Status::Ready; }));
    EXPECT_EQ(player->failure(), QString());
}

TEST_F(PlayerModuleTest, destroyingAPlayerDoesNotWaitForItsServer)
{
    const AnsweringServer silent({});
    auto player = playerModule().makePlayer();
    player->load(silent.url());
    ASSERT_TRUE(waitUntil([&] { return silent.requestCount() == 1; }));
    QElapsedTimer time;
    time.start();
    player.reset();
    EXPECT_LT(time.elapsed(), 500);
}

TEST_F(PlayerModuleTest, saysWhatIsWrongWithTheModuleItself)
{
    PlayerModule missing({folder.path()});
    const auto player = missing.makePlayer();
    EXPECT_TRUE(failureOf(*player, numberedVideo(1)).contains(u"was not found"));
    const std::unique_ptr<QWidget> surface(missing.makeSurface(*player, nullptr));
    EXPECT_NE(surface, nullptr);

    file(QStringLiteral("clipwren_player.so"), "no library");
    PlayerModule broken({folder.path()});
    EXPECT_TRUE(failureOf(*broken.makePlayer(), numberedVideo(1)).contains(u"cannot be used"));
}

TEST_F(PlayerModuleTest, worksAfterAWarmUp)
{
    PlayerModule module({QStringLiteral(CLIPWREN_PLAYER_FOLDER)});
    module.warmUp();
    const auto player = module.makePlayer();
    player->load(numberedVideo(1));
    EXPECT_TRUE(waitUntil([&] { return player->status() == MediaPlayer::Status::Ready; }));
}

} // namespace
} // namespace clipwren
