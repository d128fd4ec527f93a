#include "PlayerStage.h"

#include <QSignalSpy>
#include <QTest>
#include <QThread>

#include <algorithm>
#include <gtest/gtest.h>

namespace clipwren {
namespace {

using namespace test;

struct MpvPlayerTest : PlayerTest {
    PlayerStage stage;
    std::unique_ptr<MediaPlayer> player = playerModule().makePlayer();

    void loadShown(int stream = 1)
    {
        player->load(numberedVideo(stream));
        stage.show(*player);
        ASSERT_TRUE(stage.waitFor({stream, 0})) << player->failure().toStdString();
    }
    /// True once the picture of a time is there.
    bool seek(double seconds)
    {
        bool arrived = false;
        player->seek(seconds, [&](bool finished) { arrived = finished; });
        return waitUntil([&] { return arrived; });
    }
    bool playToThePause()
    {
        return waitUntil([&] { return !player->isPlaying(); });
    }
};

TEST_F(MpvPlayerTest, seeksShowTheFirstFrameAtOrAfterATime)
{
    loadShown();
    EXPECT_EQ(player->durationSeconds(), 8.0);
    const std::pair<double, int> cases[] = {{4, 100},  {0.04, 1},  {4.01, 101}, {2.36, 59},
                                            {2.4, 60}, {2.44, 61}, {7.96, 199}, {0, 0},
                                            {8, 199},  {3.2, 80},  {99, 199},   {-5, 0}};
    for (const auto &[seconds, frame] : cases) {
        ASSERT_TRUE(seek(seconds)) << seconds;
        EXPECT_TRUE(stage.waitFor({1, frame}))
            << seconds << " showed " << testing::PrintToString(stage.latest());
    }
}

TEST_F(MpvPlayerTest, aRangeStopsOnItsLastFrame)
{
    loadShown();
    QSignalSpy ends(player.get(), &MediaPlayer::endTimeReached);
    const struct {
        double start, end;
        int lastFrame;
    } ranges[] = {{2, 2.4, 59},  {2, 2.41, 60},  {1, 1.04, 25},
                  {7.8, 8, 199}, {7.8, 20, 199}, {7.92, 8, 199}};
    for (const auto &[start, end, lastFrame] : ranges) {
        player->setEndTime({});
        ASSERT_TRUE(seek(start));
        stage.forgetPictures();
        player->setEndTime(end);
        player->play();
        EXPECT_TRUE(player->isPlaying());
        ASSERT_TRUE(playToThePause()) << start;
        EXPECT_TRUE(stage.waitFor({1, lastFrame}) || stage.pictures().empty()) << start;
        for (const auto &picture : stage.pictures())
            EXPECT_LE(picture.value().frame, lastFrame);
        EXPECT_NEAR(player->positionSeconds(), lastFrame / framesPerSecond, 0.06);
    }
    EXPECT_EQ(ends.size(), std::ssize(ranges));
}

TEST_F(MpvPlayerTest, goesOnAfterARangeAndStartsAgainAfterTheEnd)
{
    loadShown();
    ASSERT_TRUE(seek(1));
    player->setEndTime(1.2);
    player->play();
    ASSERT_TRUE(playToThePause());
    player->setEndTime({});
    stage.forgetPictures();
    player->play();
    ASSERT_TRUE(waitUntil([&] { return stage.latest() && stage.latest()->frame > 35; }));
    EXPECT_TRUE(std::all_of(stage.pictures().begin(), stage.pictures().end(),
                            [](const auto &picture) { return picture->frame >= 29; }));

    player->pause();
    ASSERT_TRUE(seek(7.8));
    player->play();
    ASSERT_TRUE(playToThePause());
    stage.forgetPictures();
    player->play();
    ASSERT_TRUE(waitUntil([&] { return stage.latest() && stage.latest()->frame < 30; }));
    EXPECT_TRUE(player->isPlaying());
}

TEST_F(MpvPlayerTest, aHundredQuickDragsEndOnTheLast)
{
    loadShown();
    int answers = 0;
    for (int step = 1; step <= 100; ++step) {
        player->seek(step * 0.07, [&](bool) { ++answers; });
        // Some are asked for while an earlier one is on its way.
        if (step % 7 == 0)
            QTest::qWait(1);
    }
    EXPECT_TRUE(stage.waitFor({1, 175}));
    EXPECT_TRUE(waitUntil([&] { return answers == 100; })) << answers;
    EXPECT_EQ(stage.latest(), (FrameNumber{1, 175}));
}

TEST_F(MpvPlayerTest, drawsTheFrameItIsAtInEverySizeAndForEveryView)
{
    player->load(numberedVideo(1));
    ASSERT_TRUE(waitUntil([&] { return player->status() == MediaPlayer::Status::Ready; }));
    ASSERT_TRUE(seek(2)) << "without being shown";
    stage.show(*player);
    EXPECT_TRUE(stage.waitFor({1, 50}));
    stage.resize({1, 1});
    for (const QSize size : {QSize(640, 360), QSize(160, 90), QSize(48, 27), QSize(1920, 1080)}) {
        stage.forgetPictures();
        stage.resize(size);
        ASSERT_TRUE(waitUntil([&] { return player->videoOutput()->picture().size() == size; }));
        EXPECT_TRUE(stage.waitFor({1, 50})) << size.width();
    }
    stage.close();
    ASSERT_TRUE(seek(3));
    stage.show(*player);
    EXPECT_TRUE(stage.waitFor({1, 75}));
}

TEST_F(MpvPlayerTest, stepsFrameByFrameFromWhereItPlays)
{
    loadShown();
    ASSERT_TRUE(seek(2));
    for (const auto &[frames, shown] :
         {std::pair(1, 51), {1, 52}, {-1, 51}, {-1, 50}, {-1, 49}, {1, 50}}) {
        player->step(frames);
        EXPECT_TRUE(stage.waitFor({1, shown})) << testing::PrintToString(stage.latest());
    }
    // As with a key that is held down.
    for (int count = 0; count < 20; ++count)
        player->step(1);
    EXPECT_TRUE(stage.waitFor({1, 70}));

    player->play();
    ASSERT_TRUE(waitUntil([&] { return stage.latest() && stage.latest()->frame > 75; }));
    player->step(1);
    EXPECT_FALSE(player->isPlaying());
    ASSERT_TRUE(seek(0));
    player->step(-1);
    QTest::qWait(20);
    EXPECT_TRUE(stage.waitFor({1, 0}));
}

TEST_F(MpvPlayerTest, leavesPicturesOutWhenNobodyTakesThemInTime)
{
    loadShown();
    player->play();
    stage.forgetPictures();
    // The user-interface thread is busy, the film goes on.
    QThread::msleep(600);
    ASSERT_TRUE(waitUntil([&] { return !stage.pictures().empty(); }));
    EXPECT_GE(stage.latest()->frame, 10) << "old pictures have queued";
    EXPECT_LE(stage.pictures().size(), 2);
}

} // namespace
} // namespace clipwren
