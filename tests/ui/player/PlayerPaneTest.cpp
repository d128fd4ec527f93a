#include "ui/player/PlayerPane.h"

#include "PlayerStage.h"
#include "support/ScriptedPlayer.h"
#include "support/Widgets.h"
#include "ui/components/Button.h"
#include "ui/player/ThinSlider.h"

#include <QAccessible>
#include <QLayout>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace clipwren {
namespace {

using namespace test;
using namespace Qt::StringLiterals;
using FullScreen = PlayerControls::FullScreen;

/// A pane in a window with a player of 100 s that is ready, at its start and paused.
struct PlayerPaneTest : PlayerTest {
    QStringList log;
    std::unique_ptr<ScriptedPlayer> player = std::make_unique<ScriptedPlayer>(log);
    QWidget window;
    PlayerPane *pane = nullptr;

    PlayerPaneTest()
    {
        window.resize(704, 320);
        showWindow(window);
        player->load(numberedVideo(1));
        player->setDuration(100);
        player->becomeReady();
        log.clear();
        makePane(FullScreen::CanEnter);
    }
    void makePane(FullScreen fullScreen)
    {
        delete pane;
        pane = new PlayerPane(
            {.fullScreen = fullScreen, .hideControlsAfter = std::chrono::milliseconds(20)},
            &window);
        pane->setGeometry(window.rect());
        pane->show();
        pane->setPlayer(player.get());
        pane->setFocus();
    }
    template <typename Part> Part &part(const char *name)
    {
        for (Part *each : pane->findChildren<Part *>()) {
            if (each->accessibleName() == QLatin1String(name))
                return *each;
        }
        throw std::runtime_error(name);
    }
    ThinSlider &position() { return part<ThinSlider>("Position"); }
    PlayerControls &controls() { return *pane->findChild<PlayerControls *>(); }
    bool controlsVanish()
    {
        return waitUntil([&] { return controls().isHidden(); });
    }
    /// The time at the end of the bar, by what a click on it does.
    QAbstractButton &endTime()
    {
        for (auto *each : pane->findChildren<QAbstractButton *>()) {
            if (each->toolTip().startsWith(u"Show the"))
                return *each;
        }
        throw std::runtime_error("no time");
    }
    QPoint at(double fraction)
    {
        return {qRound(position().width() * fraction), position().height() / 2};
    }
};

TEST_F(PlayerPaneTest, obeysKeys)
{
    player->seek(50, {});
    player->finishSeek();
    log.clear();
    const auto tells = [this](QWidget &focus, Qt::Key key, const char *told) {
        QTest::keyClick(&focus, key);
        EXPECT_EQ(log, QStringList(QLatin1String(told)));
        log.clear();
        player->finishSeek();
    };
    tells(*pane, Qt::Key_Space, "play");
    tells(*pane, Qt::Key_Space, "pause");
    tells(*pane, Qt::Key_Left, "seek 45");
    tells(*pane, Qt::Key_Right, "seek 50");
    auto &play = part<Button>("Play");
    play.setFocus(Qt::TabFocusReason);
    tells(play, Qt::Key_Right, "seek 55"); // buttons leave the arrow keys to the video
    tells(play, Qt::Key_Space, "play");
    EXPECT_TRUE(play.hasFocus());
    EXPECT_EQ(play.accessibleName(), u"Pause"_s);
    tells(position(), Qt::Key_PageUp, "seek 85");
    tells(position(), Qt::Key_Home, "seek 0");

    QTest::keyClick(pane, Qt::Key_Down);
    EXPECT_EQ(player->volume(), 0.95);
    QTest::keyClick(pane, Qt::Key_M);
    EXPECT_TRUE(player->isMuted());
    QTest::keyClick(&part<ThinSlider>("Volume"), Qt::Key_Up);
    EXPECT_FALSE(player->isMuted());
    EXPECT_EQ(player->volume(), 1);
    // A shortcut of the window.
    QTest::keyClick(pane, Qt::Key_M, Qt::ControlModifier);
    EXPECT_FALSE(player->isMuted());
}

TEST_F(PlayerPaneTest, asksForFullScreenOnlyWhereThereIsSuch)
{
    for (const FullScreen fullScreen : {FullScreen::None, FullScreen::CanEnter}) {
        makePane(fullScreen);
        QSignalSpy asked(pane, &PlayerPane::fullScreenToggled);
        QTest::keyClick(pane, Qt::Key_Escape);
        // The picture is what is double-clicked, not the bar.
        QTest::mouseDClick(&controls(), Qt::LeftButton, {}, {2, 2});
        EXPECT_EQ(asked.count(), 0);
        QTest::keyClick(pane, Qt::Key_F);
        QTest::mouseDClick(pane, Qt::LeftButton, {}, {10, 10});
        EXPECT_EQ(asked.count(), fullScreen == FullScreen::None ? 0 : 2);
    }
}

TEST_F(PlayerPaneTest, controlsHideWhileItPlaysAndNobodyUsesThem)
{
    for (const FullScreen fullScreen : {FullScreen::CanEnter, FullScreen::CanLeave}) {
        makePane(fullScreen);
        player->play();
        EXPECT_FALSE(controls().isHidden());
        ASSERT_TRUE(controlsVanish());
        // In full screen, the pointer goes with them.
        EXPECT_EQ(pane->cursor().shape() == Qt::BlankCursor, fullScreen == FullScreen::CanLeave);
        QTest::mouseMove(pane, {300, 40});
        QTest::mouseMove(pane, {310, 50});
        EXPECT_TRUE(waitUntil([&] { return !controls().isHidden(); }));
        ASSERT_TRUE(controlsVanish());
        QTest::keyClick(pane, Qt::Key_Right);
        EXPECT_FALSE(controls().isHidden());
        ASSERT_TRUE(controlsVanish());
        player->pause();
        EXPECT_FALSE(controls().isHidden());
        EXPECT_NE(pane->cursor().shape(), Qt::BlankCursor);
    }
    player->play();
    part<Button>("Pause").setFocus(Qt::TabFocusReason);
    QTest::qWait(50);
    EXPECT_FALSE(controls().isHidden()) << "with the focus inside";
    pane->setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(controlsVanish());
    player->pause();
    QTest::mousePress(&position(), Qt::LeftButton, {}, at(0.5));
    player->play();
    QTest::qWait(50);
    EXPECT_FALSE(controls().isHidden()) << "while the position is dragged";
}

TEST_F(PlayerPaneTest, aDragSeeksAndThenPlaysOnWhatWasPlaying)
{
    QTest::mouseClick(&position(), Qt::LeftButton, {}, at(0.25));
    EXPECT_FALSE(player->isPlaying()) << "it was paused";
    player->finishSeek();

    player->setEndTime(60);
    player->play();
    QTest::mousePress(&position(), Qt::LeftButton, {}, at(0.25));
    EXPECT_FALSE(player->isPlaying());
    EXPECT_NEAR(player->positionSeconds(), 25, 0.5);
    // Else it would stop there when it goes on beyond.
    EXPECT_EQ(player->endTime(), std::nullopt);
    QTest::mouseMove(&position(), at(0.75));
    player->finishSeek();
    EXPECT_NEAR(player->positionSeconds(), 75, 0.5);
    EXPECT_TRUE(part<Button>("Pause").isVisible());
    QTest::mouseRelease(&position(), Qt::LeftButton, {}, at(0.75));
    EXPECT_TRUE(player->isPlaying());

    QTest::mousePress(&position(), Qt::LeftButton, {}, at(0.25));
    QTest::mouseMove(&position(), {position().width() + 50, 0});
    player->finishSeek();
    EXPECT_EQ(player->positionSeconds(), 100);
    QTest::mouseRelease(&position(), Qt::LeftButton, {}, at(1));
    EXPECT_FALSE(player->isPlaying()) << "at its end, it would start again";
}

TEST_F(PlayerPaneTest, forgetsAPlayerThatGoesWhileItIsDragged)
{
    player->play();
    QTest::mousePress(&position(), Qt::LeftButton, {}, at(0.25));
    player.reset();
    EXPECT_TRUE(controls().isHidden());
    EXPECT_EQ(pane->player(), nullptr);
    QTest::mouseRelease(&position(), Qt::LeftButton, {}, at(0.5));
    QTest::keyClick(pane, Qt::Key_Space);
    ScriptedPlayer other(log);
    other.load(numberedVideo(2));
    pane->setPlayer(&other);
    EXPECT_FALSE(other.isPlaying());
    pane->setPlayer(nullptr);
}

TEST_F(PlayerPaneTest, narrowPanesLeavePartsOut)
{
    const struct {
        int width;
        bool volume, end, mute;
    } cases[] = {{704, true, true, true}, {300, false, true, true}, {200, false, false, false}};
    for (const auto &[width, volume, end, mute] : cases) {
        SCOPED_TRACE(width);
        pane->resize(width, 220);
        EXPECT_EQ(part<ThinSlider>("Volume").isVisible(), volume);
        EXPECT_EQ(endTime().isVisible(), end);
        EXPECT_EQ(part<Button>("Mute").isVisible(), mute);
        EXPECT_TRUE(part<Button>("Play").isVisible());
        EXPECT_TRUE(part<Button>("Full Screen").isVisible());
        EXPECT_LE(controls().layout()->minimumSize().width(), controls().width());
    }
}

TEST_F(PlayerPaneTest, tellsTheTimeAlsoToAssistiveTools)
{
    player->seek(9.6, {});
    player->finishSeek();
    for (const QString &time : {u"1:40"_s, u"−1:30"_s, u"1:40"_s}) {
        EXPECT_EQ(endTime().text(), time);
        QTest::mouseClick(&endTime(), Qt::LeftButton);
    }
    player->seek(65, {});
    player->finishSeek();
    QAccessibleInterface *const slider = QAccessible::queryAccessibleInterface(&position());
    EXPECT_EQ(slider->role(), QAccessible::Slider);
    EXPECT_EQ(slider->text(QAccessible::Value), u"1:05"_s);
    EXPECT_EQ(slider->valueInterface()->currentValue().toDouble(), 65);
    slider->valueInterface()->setCurrentValue(300.0);
    EXPECT_EQ(log.last(), u"seek 100"_s);
}

TEST_F(PlayerPaneTest, saysWhyAStreamCannotBePlayed)
{
    const auto sentence = u"This is not a video."_s;
    player->fail(sentence);
    EXPECT_TRUE(shows(*pane, sentence));
    QTest::mouseMove(pane, {300, 40});
    EXPECT_TRUE(controls().isHidden());
    player->load(numberedVideo(1));
    EXPECT_FALSE(shows(*pane, sentence));
    EXPECT_FALSE(controls().isHidden());
}

} // namespace
} // namespace clipwren
