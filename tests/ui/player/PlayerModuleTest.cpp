#include "platform/media/PlayerModule.h"

#include "PlayerStage.h"
#include "support/Printing.h"
#include "support/WebServer.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace clipwren {
namespace {

using namespace test;
using namespace Qt::StringLiterals;

struct PlayerModuleTest : PlayerTest {
    QTemporaryDir folder;

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
    const WebServer missing(response("404 Not Found"));
    const WebServer forbidden(response("403 Forbidden"));
    const WebServer broken(response("503 Service Unavailable"));
    const WebServer page(response("200 OK", "<html><body>Sign in first</body></html>"));
    const WebServer silent;
    const QString closed = WebServer().url();
    const QString noVideo = u"This is not a video."_s;
    const std::pair<QUrl, QString> cases[] = {
        {QUrl(missing.url()), u"The server has no video at this address (404)."_s},
        {QUrl(forbidden.url()), u"The server does not allow access to this video (403)."_s},
        {QUrl(broken.url()), u"The server has a fault and cannot send the video."_s},
        {QUrl(silent.url()), u"The video's server took too long to answer."_s},
        {QUrl(page.url()), noVideo},
        {QUrl(closed), u"Cannot connect to the video's server."_s},
        {file(u"notes.mp4"_s, "no video at all"), noVideo},
        {file(u"list.m3u"_s, "#EXTM3U\n/etc/passwd\n"), noVideo},
        {file(u"empty.mp4"_s, {}), noVideo},
        {QUrl::fromLocalFile(folder.path()), noVideo},
        {QUrl::fromLocalFile(folder.filePath(u"gone.mp4"_s)), u"The file does not exist."_s},
        {QUrl(u"edl:///etc/passwd"_s), u"Videos cannot be played from this kind of address."_s}};
    PlayerModule module(Module::defaultFolders(), std::chrono::milliseconds(300));
    std::unique_ptr<MediaPlayer> player;
    for (const auto &[url, sentence] : cases) {
        // Beside the one before, which ends in the background.
        player = module.makePlayer();
        EXPECT_EQ(failureOf(*player, url), sentence) << url.toString().toStdString();
    }

    // A player that failed can still play the next stream.
    player->load(numberedVideo(1));
    EXPECT_TRUE(waitUntil([&] { return player->status() == MediaPlayer::Status::Ready; }));
    EXPECT_EQ(player->failure(), QString());
}

TEST_F(PlayerModuleTest, destroyingAPlayerDoesNotWaitForItsServer)
{
    const WebServer silent;
    auto player = playerModule().makePlayer();
    player->load(QUrl(silent.url()));
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

    file(u"clipwren_player.so"_s, "no library");
    PlayerModule broken({folder.path()});
    EXPECT_TRUE(failureOf(*broken.makePlayer(), numberedVideo(1)).contains(u"cannot be used"));
}

TEST_F(PlayerModuleTest, worksAfterAWarmUp)
{
    PlayerModule module;
    module.warmUp();
    const auto player = module.makePlayer();
    player->load(numberedVideo(1));
    EXPECT_TRUE(waitUntil([&] { return player->status() == MediaPlayer::Status::Ready; }));
}

} // namespace
} // namespace clipwren
