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

struct VideoPaneTest : PlayerTest { };

TEST_F(VideoPaneTest, laysRoundCornersOverThePictureWithoutPaintingThemAgain)
{
    QWidget window;
    window.setPalette(QPalette(Qt::red));
    window.resize(360, 220);
    VideoPane pane(playerModule(), &window);
    pane.setGeometry(20, 20, 320, 180);
    pane.frame().setRadius(14);
    window.show();
    const auto player = playerModule().makePlayer();
    player->load(numberedVideo(1));
    pane.setPlayer(player.get());
    const auto picture = [&] { return window.grab().toImage(); };
    ASSERT_TRUE(waitUntil([&] {
        return readFrameNumber(picture().copy(pane.geometry())) == FrameNumber{1, 0};
    }));

    for (const QPoint corner : {QPoint(20, 20), QPoint(339, 20), QPoint(20, 199), QPoint(339, 199)})
        EXPECT_EQ(picture().pixelColor(corner), QColor(Qt::red)) << corner.x() << corner.y();
    // Where the corner's arc has passed, the video begins.
    EXPECT_NE(picture().pixelColor(25, 194), QColor(Qt::red));
    EXPECT_NE(picture().pixelColor(180, 20), QColor(Qt::red));

    PaintCounter counter;
    pane.frame().installEventFilter(&counter);
    player->play();
    ASSERT_TRUE(waitUntil([&] { return player->positionSeconds() > 0.5; }));
    EXPECT_EQ(counter.paints, 0);
}

} // namespace
} // namespace clipwren
