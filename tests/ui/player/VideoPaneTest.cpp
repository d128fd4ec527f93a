#include "ui/player/VideoPane.h"

#include "PlayerStage.h"
#include "ui/player/CornerFrame.h"

#include <QEvent>

#include <gtest/gtest.h>

namespace clipwren {
namespace {

using namespace test;

struct PaintCounter : QObject {
    int paints = 0;

    bool eventFilter(QObject *, QEvent *event) override
    {
        paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

struct VideoPaneTest : testing::Test {
    QWidget window;
    VideoPane pane{playerModule(), &window};
    std::unique_ptr<MediaPlayer> player = playerModule().makePlayer();

    static void SetUpTestSuite() { PlayerStage::warmUp(); }

    VideoPaneTest()
    {
        window.setPalette(QPalette(Qt::red));
        window.resize(360, 220);
        pane.setGeometry(20, 20, 320, 180);
        pane.frame().setRadius(14);
        window.show();
    }
    std::optional<FrameNumber> shown()
    {
        return readFrameNumber(window.grab(pane.geometry()).toImage());
    }
    bool waitFor(const FrameNumber &number)
    {
        return waitUntil([&] { return shown() == number; });
    }
};

TEST_F(VideoPaneTest, showsThePlayerInsideRoundCorners)
{
    player->load(numberedVideo(1));
    pane.setPlayer(player.get());
    ASSERT_TRUE(waitFor({1, 0}));

    const QImage picture = window.grab().toImage();
    const QColor backdrop = window.palette().color(QPalette::Window);
    for (const QPoint corner : {QPoint(20, 20), QPoint(339, 20), QPoint(20, 199), QPoint(339, 199)})
        EXPECT_EQ(picture.pixelColor(corner), backdrop) << corner.x() << ", " << corner.y();
    // Where the corner's arc has passed, the video begins.
    EXPECT_NE(picture.pixelColor(25, 194), backdrop);
    EXPECT_NE(picture.pixelColor(180, 20), backdrop);
}

TEST_F(VideoPaneTest, aMovingPictureDoesNotRepaintWhatLiesOverIt)
{
    player->load(numberedVideo(1));
    pane.setPlayer(player.get());
    ASSERT_TRUE(waitFor({1, 0}));
    PaintCounter counter;
    pane.frame().installEventFilter(&counter);
    const double before = player->positionSeconds();
    player->play();
    ASSERT_TRUE(waitUntil([&] { return player->positionSeconds() > before + 0.5; }));
    EXPECT_EQ(counter.paints, 0);
}

TEST_F(VideoPaneTest, switchesPlayersAndLetsGoOfOneThatIsDestroyed)
{
    player->load(numberedVideo(1));
    pane.setPlayer(player.get());
    ASSERT_TRUE(waitFor({1, 0}));
    const auto second = playerModule().makePlayer();
    second->load(numberedVideo(2));
    pane.setPlayer(second.get());
    ASSERT_TRUE(waitFor({2, 0}));
    pane.setPlayer(player.get());
    ASSERT_TRUE(waitFor({1, 0}));
    player.reset();
    EXPECT_EQ(pane.player(), nullptr);
    EXPECT_TRUE(waitUntil([&] { return !shown(); }));
}

} // namespace
} // namespace clipwren
