#include "ui/player/SafeVideoPlayer.h"

#include "PlayerStage.h"
#include "support/Widgets.h"
#include "ui/downloader/PreviewPane.h"
#include "ui/player/PlayerPane.h"
#include "workflow/preview/PreviewPlayerController.h"

#include <QFile>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <gtest/gtest.h>

namespace clipwren {
namespace {

using namespace test;
using namespace Qt::StringLiterals;

struct SafeVideoPlayerTest : PlayerTest {
    const MediaPlayerFactory makePlayer = [] { return playerModule().makePlayer(); };
    QWidget window;
    std::unique_ptr<SafeVideoPlayer> view;

    SafeVideoPlayerTest()
    {
        window.resize(320, 180);
        makeView();
        showWindow(window);
    }
    void makeView()
    {
        view = std::make_unique<SafeVideoPlayer>(makePlayer, &window);
        view->resize(window.size());
        view->show();
    }
    void open()
    {
        view->setUrl(numberedVideo(1));
        ASSERT_TRUE(showsFrame({1, 0}));
    }

    /// Null while the video is in its place.
    PlayerPane *fullScreen()
    {
        for (auto *each : view->findChildren<PlayerPane *>()) {
            if (each->isWindow() && each->isVisible())
                return each;
        }
        return nullptr;
    }
    /// Where the video is.
    PlayerPane &pane()
    {
        if (PlayerPane *const whole = fullScreen())
            return *whole;
        return *static_cast<PlayerPane *>(view->focusProxy());
    }
    MediaPlayer &player()
    {
        if (!pane().player())
            throw std::logic_error("no player is shown");
        return *pane().player();
    }
    bool showsFrame(const FrameNumber &number)
    {
        return waitUntil([&] {
            // As large as the test videos, whose numbers stand at fixed places.
            const QImage picture = pane().grab().toImage();
            QRect place({}, QSize(16, 9).scaled(picture.size(), Qt::KeepAspectRatio));
            place.moveCenter(picture.rect().center());
            return readFrameNumber(picture.copy(place).scaled(320, 180)) == number;
        });
    }
    void jumpTo(int frame)
    {
        player().seek(frame / framesPerSecond, {});
        ASSERT_TRUE(showsFrame({1, frame}));
    }
    void enterFullScreen()
    {
        pane().setFocus();
        QTest::keyClick(&pane(), Qt::Key_F);
        ASSERT_TRUE(fullScreen());
    }
};

TEST_F(SafeVideoPlayerTest, replacesTheFileOnlyWhenItDiffers)
{
    open();
    EXPECT_FALSE(player().isPlaying());
    jumpTo(50);
    player().play();
    view->setUrl(numberedVideo(1));
    EXPECT_TRUE(player().isPlaying());
    EXPECT_GE(player().positionSeconds(), 50 / framesPerSecond);
    view->setUrl(numberedVideo(2));
    EXPECT_TRUE(showsFrame({2, 0}));
    EXPECT_FALSE(player().isPlaying());
    view->setUrl({});
    EXPECT_EQ(pane().player(), nullptr);
}

TEST_F(SafeVideoPlayerTest, fullScreenThereAndBackKeepsThePosition)
{
    open();
    jumpTo(50);
    const std::function<void()> waysBack[] = {
        [&] { QTest::keyClick(&pane(), Qt::Key_Escape); },
        [&] {
            QTest::mouseDClick(&pane(), Qt::LeftButton, {}, {20, 20});
        },
        [&] { fullScreen()->close(); },
    };
    for (const auto &goBack : waysBack) {
        enterFullScreen();
        EXPECT_TRUE(showsFrame({1, 50}));
        EXPECT_EQ(fullScreen()->size(), fullScreen()->screen()->size());
        goBack();
        EXPECT_FALSE(fullScreen());
        EXPECT_TRUE(showsFrame({1, 50}));
    }
    player().play();
    enterFullScreen();
    EXPECT_TRUE(player().isPlaying());
    QTest::keyClick(&pane(), Qt::Key_F);
    EXPECT_TRUE(player().isPlaying());
    EXPECT_GE(player().positionSeconds(), 50 / framesPerSecond);
}

TEST_F(SafeVideoPlayerTest, hiddenItPausesAndKeepsItsPlace)
{
    open();
    enterFullScreen();
    MediaPlayer &same = player();
    same.play();
    window.hide();
    EXPECT_FALSE(fullScreen());
    EXPECT_FALSE(same.isPlaying());
    EXPECT_EQ(pane().player(), nullptr);
    const double position = same.positionSeconds();
    window.show();
    EXPECT_EQ(&player(), &same);
    EXPECT_NEAR(same.positionSeconds(), position, 0.2);
}

TEST_F(SafeVideoPlayerTest, mayBeDestroyedAtAnyMoment)
{
    view->setUrl(numberedVideo(1));
    view.reset();

    makeView();
    open();
    player().play();
    enterFullScreen();
    view.reset();

    makeView();
    view->setUrl(numberedVideo(2));
    enterFullScreen();
    QTest::keyClick(&pane(), Qt::Key_F);
    view.reset();
}

TEST_F(SafeVideoPlayerTest, nothingIsLoadedBeforeThereIsAVideo)
{
    const QTemporaryDir folder;
    const QString name = u"/clipwren_player.so"_s;
    ASSERT_TRUE(QFile::copy(PlayerModule::defaultFolders().last() + name, folder.path() + name));
    PlayerModule module({folder.path()});
    PreviewPlayerController controller([&] { return module.makePlayer(); });
    SafeVideoPlayer file([&] { return module.makePlayer(); }, &window);
    PreviewPlayerView preview(controller, &window);
    file.show();
    preview.show();
    QFile maps(u"/proc/self/maps"_s);
    ASSERT_TRUE(maps.open(QIODevice::ReadOnly));
    EXPECT_FALSE(maps.readAll().contains(folder.path().toUtf8()));
}

} // namespace
} // namespace clipwren
