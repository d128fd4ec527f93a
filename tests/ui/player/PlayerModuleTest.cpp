#include "platform/media/PlayerModule.h"

#include "PlayerStage.h"
#include "support/Printing.h"
#include "support/WebServer.h"

#include <QDataStream>
#include <QElapsedTimer>
#include <QFile>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QThreadPool>

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
    const WebServer stalling([](const QByteArray &, QTcpSocket &socket) {
        QFile file(numberedVideo(1).toLocalFile());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        socket.write("HTTP/1.1 200 OK\r\nContent-Length: 5000000\r\n\r\n" + file.read(200));
    });
    const QString closed = WebServer().url();
    const QString tooLong = u"The video's server took too long to answer."_s;
    const QString noVideo = u"This is not a video."_s;
    const std::pair<QUrl, QString> cases[] = {
        {QUrl(missing.url()), u"The server has no video at this address (404)."_s},
        {QUrl(forbidden.url()), u"The server does not allow access to this video (403)."_s},
        {QUrl(broken.url()), u"The server has a fault and cannot send the video."_s},
        {QUrl(silent.url()), tooLong},
        {QUrl(stalling.url()), tooLong},
        {QUrl(page.url()), noVideo},
        {QUrl(closed), u"Cannot connect to the video's server."_s},
        {file(u"notes.mp4"_s, "no video at all"), noVideo},
        {file(u"list.m3u"_s, "#EXTM3U\n/etc/passwd\n"), noVideo},
        {file(u"empty.mp4"_s, {}), noVideo},
        {QUrl::fromLocalFile(folder.path()), noVideo},
        {QUrl::fromLocalFile(folder.filePath(u"gone.mp4"_s)), u"The file does not exist."_s},
        {QUrl(u"edl:///etc/passwd"_s), u"Videos cannot be played from this kind of address."_s}};
    PlayerModule module(PlayerModule::defaultFolders(), std::chrono::milliseconds(300));
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

TEST_F(PlayerModuleTest, streamsOfTheNetworkConsistOfManyFilesFromTheNetworkOnly)
{
    const WebServer site([](const QByteArray &path, QTcpSocket &socket) {
        QFile file(QString::fromUtf8(CLIPWREN_TEST_MEDIA) + QString::fromUtf8(path));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
        socket.write(response("200 OK", file.readAll()));
        socket.disconnectFromHost();
    });
    PlayerStage stage;
    const auto player = playerModule().makePlayer();
    player->load(QUrl(site.url(u"/stream.m3u8"_s)));
    stage.show(*player);
    EXPECT_TRUE(stage.waitFor({1, 0})) << player->failure().toStdString();

    const QByteArray head = "#EXTM3U\n#EXT-X-TARGETDURATION:4\n#EXTINF:4,\n";
    const QByteArray piece = "/stream0.ts\n#EXT-X-ENDLIST\n";
    const WebServer thief(response("200 OK", head + "file://" CLIPWREN_TEST_MEDIA + piece));
    EXPECT_FALSE(failureOf(*player, QUrl(thief.url(u"/stream.m3u8"_s))).isEmpty());
    const int requests = site.requestCount();
    const QUrl local = file(u"local.m3u8"_s, head + site.url({}).toUtf8() + piece);
    EXPECT_EQ(failureOf(*player, local), u"This is not a video."_s);
    EXPECT_EQ(site.requestCount(), requests) << "a file on the disk opened something else";
}

TEST_F(PlayerModuleTest, readsOnlySomeSecondsAhead)
{
    // Five minutes of silence, 58 MB.
    constexpr quint32 bytesPerSecond = 48'000 * 2 * 2;
    constexpr quint32 size = bytesPerSecond * 300;
    QByteArray sound("RIFF");
    QDataStream wav(&sound, QIODevice::Append);
    wav.setByteOrder(QDataStream::LittleEndian);
    wav << quint32(36 + size);
    wav.writeRawData("WAVEfmt ", 8);
    wav << quint32(16) << quint16(1) << quint16(2) << quint32(48'000) << bytesPerSecond
        << quint16(4) << quint16(16);
    wav.writeRawData("data", 4);
    wav << size;
    sound.append(qsizetype(size), 0);

    qint64 sent = 0;
    QElapsedTimer sinceSent;
    const WebServer site([&](const QByteArray &, QTcpSocket &socket) {
        QObject::connect(&socket, &QTcpSocket::bytesWritten, &socket, [&](qint64 bytes) {
            sent += bytes;
            sinceSent.start();
        });
        socket.write(response("200 OK", sound));
    });
    const auto player = playerModule().makePlayer();
    player->load(QUrl(site.url(u"/sound.wav"_s)));
    ASSERT_TRUE(waitUntil([&] { return player->status() == MediaPlayer::Status::Ready; }))
        << player->failure().toStdString();
    ASSERT_TRUE(waitUntil([&] { return sinceSent.isValid() && sinceSent.hasExpired(300); }));
    // Beside what the network holds on its way.
    EXPECT_LT(sent, 25'000'000);
}

TEST_F(PlayerModuleTest, soundAloneStartsAtZeroWithoutAPictureOfAnotherFile)
{
    ASSERT_TRUE(QFile::copy(QString::fromUtf8(CLIPWREN_TEST_MEDIA "/sound.mp3"),
                            folder.filePath(u"sound.mp3"_s)));
    QImage cover(64, 36, QImage::Format_RGB32);
    cover.fill(Qt::red);
    ASSERT_TRUE(cover.save(folder.filePath(u"cover.png"_s)));
    const auto player = playerModule().makePlayer();
    player->videoOutput()->setSize({64, 36});
    player->load(QUrl::fromLocalFile(folder.filePath(u"sound.mp3"_s)));
    ASSERT_TRUE(waitUntil([&] { return !player->videoOutput()->picture().isNull(); }));
    EXPECT_EQ(player->videoOutput()->picture().pixelColor(32, 18), QColor(Qt::black));
    EXPECT_GE(player->positionSeconds(), 0);
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
    EXPECT_EQ(QThreadPool::globalInstance()->activeThreadCount(), 0) << "Qt's painter waits for it";
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

} // namespace
} // namespace clipwren
