#include "PlayerStage.h"
#include "support/WebServer.h"

#include <QDir>
#include <QRandomGenerator>
#include <QTest>

#include <functional>
#include <gtest/gtest.h>

namespace clipwren {
namespace {

using namespace test;
using namespace Qt::StringLiterals;

int threadCount()
{
    return static_cast<int>(QDir(u"/proc/self/task"_s).entryList(QDir::Dirs).size());
}

struct PlayerLifetimeTest : PlayerTest {
    // Which picture may be on screen now; 0 for none.
    int stream = 0;
    PlayerStage stage;
    std::unique_ptr<MediaPlayer> player = playerModule().makePlayer();
    WebServer missing{response("404 Not Found")};
    WebServer silent;
    // Printed on failure, so that the same moments can be tried again.
    const quint32 seed = QRandomGenerator::global()->generate();
    QRandomGenerator random{seed};

    void load(const QUrl &url, int number)
    {
        player->load(url);
        stage.forgetPictures();
        stream = number;
    }
    void replacePlayer()
    {
        player = playerModule().makePlayer();
        stage.forgetPictures();
        stream = 0;
    }
    void doSomething()
    {
        const std::function<void()> actions[] = {
            [&] { load(numberedVideo(1), 1); },
            [&] { load(numberedVideo(1), 1); },
            [&] { load(numberedVideo(2), 2); },
            [&] { load(QUrl(missing.url()), 0); },
            [&] { load(QUrl(silent.url()), 0); },
            [&] { replacePlayer(); },
            [&] { stage.forgetPictures(), stage.show(*player); },
            [&] { stage.close(); },
            [&] { stage.resize(QSize(16, 9) * (4 + random.bounded(60))); },
            [&] { player->seek(random.bounded(8.0), {}); },
            [&] { player->setEndTime(random.bounded(8.0)), player->play(); },
            [&] { player->setEndTime({}), player->pause(); },
        };
        actions[random.bounded(static_cast<int>(std::size(actions)))]();
    }
    void expectNoWrongPicture() const
    {
        for (const auto &picture : stage.pictures())
            EXPECT_EQ(picture.value_or(FrameNumber{stream, 0}).stream, stream) << "seed " << seed;
    }
};

TEST_F(PlayerLifetimeTest, survivesEverythingAtEveryMoment)
{
    const int threadsBefore = threadCount();
    for (int step = 0; step < 250; ++step) {
        doSomething();
        // From at once to after the first pictures.
        if (const int wait = random.bounded(4) * random.bounded(20); wait > 0)
            QTest::qWait(wait);
        expectNoWrongPicture();
    }
    replacePlayer();
    stage.show(*player);
    load(numberedVideo(2), 2);
    EXPECT_TRUE(stage.waitFor({2, 0})) << "seed " << seed;
    player.reset();
    EXPECT_TRUE(playerModule().waitForEndedPlayers(std::chrono::seconds(20)));
    EXPECT_TRUE(waitUntil([&] { return threadCount() <= threadsBefore + 2; }))
        << threadCount() << " threads, before " << threadsBefore;
}

TEST_F(PlayerLifetimeTest, playerAndViewGoInEitherOrderAHundredTimes)
{
    for (int round = 0; round < 100; ++round) {
        player = playerModule().makePlayer();
        load(numberedVideo(1 + round % 2), 1 + round % 2);
        stage.show(*player);
        if (const int wait = random.bounded(120); round % 3 != 0)
            QTest::qWait(wait);
        if (round % 2 == 0)
            stage.close();
        player.reset();
        QTest::qWait(random.bounded(3));
        expectNoWrongPicture();
    }
}

} // namespace
} // namespace clipwren
