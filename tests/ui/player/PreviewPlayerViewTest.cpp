#include "PlayerStage.h"
#include "support/ScriptedPlayer.h"
#include "ui/downloader/PreviewPane.h"
#include "ui/player/PlayerPane.h"
#include "workflow/preview/PreviewPlayerController.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTest>

#include <gtest/gtest.h>

namespace clipwren {
namespace {

using namespace test;

struct PreviewPlayerViewTest : PlayerTest {
    QStringList log;
    PreviewPlayerController controller{[this] { return std::make_unique<ScriptedPlayer>(log); }};
    QWidget window;
    PreviewPlayerView *view = new PreviewPlayerView(controller, &window);

    PreviewPlayerViewTest() { window.show(); }
    ScriptedPlayer &player() { return static_cast<ScriptedPlayer &>(*controller.player()); }
    MediaPlayer *shown() const { return view->findChild<PlayerPane *>()->player(); }
    void play()
    {
        controller.load(numberedVideo(1));
        player().becomeReady();
        controller.player()->play();
    }
};

TEST_F(PreviewPlayerViewTest, pausesAndDetachesWhenItIsHiddenOrDestroyed)
{
    play();
    view->hide();
    EXPECT_FALSE(controller.isPlaying());
    EXPECT_EQ(shown(), nullptr);
    // Somebody else may show the player meanwhile.
    play();
    EXPECT_EQ(shown(), nullptr);
    view->show();
    EXPECT_EQ(shown(), controller.player());
    EXPECT_TRUE(controller.isPlaying());
    controller.playRange(1, 2);
    window.hide();
    player().finishSeek();
    EXPECT_FALSE(controller.isPlaying()) << "nobody could stop it";

    window.show();
    play();
    delete view;
    EXPECT_FALSE(controller.isPlaying());
    EXPECT_NE(controller.player(), nullptr);
}

TEST_F(PreviewPlayerViewTest, outlivesTheControllersPlayers)
{
    play();
    const QPointer<MediaPlayer> first = controller.player();
    view->hide();
    view->deleteLater();
    // While the first view still waits for its end, the next shows the next stream.
    auto *const next = new PreviewPlayerView(controller, &window);
    next->show();
    play();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(first.isNull());
    EXPECT_TRUE(controller.isPlaying());
    EXPECT_EQ(next->findChild<PlayerPane *>()->player(), controller.player());
    player().fail({});
    EXPECT_EQ(next->findChild<PlayerPane *>()->player(), nullptr);
}

TEST_F(PreviewPlayerViewTest, aJumpEndsARangeThatIsAboutToPlay)
{
    controller.load(numberedVideo(1));
    player().becomeReady();
    controller.playRange(1, 2);
    view->findChild<PlayerPane *>()->setFocus();
    QTest::keyClick(view->findChild<PlayerPane *>(), Qt::Key_Right);
    // The first jump gives way to the second.
    player().finishSeek(false);
    player().finishSeek();
    EXPECT_FALSE(player().isPlaying());
    EXPECT_EQ(player().endTime(), std::nullopt);
}

} // namespace
} // namespace clipwren
