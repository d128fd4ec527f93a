#include "ui/player/SafeVideoPlayer.h"

#include "PlayerStage.h"
#include "support/Widgets.h"
#include "ui/downloader/PreviewPlayerView.h"
#include "ui/player/FullScreenPlayer.h"
#include "workflow/preview/PreviewPlayerController.h"

#include <QFile>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <gtest/gtest.h>

namespace clipwren {
namespace {

using namespace test;
using namespace Qt::StringLiterals;

QString loadedFiles()
{
    QFile maps(u"/proc/self/maps"_s);
    return maps.open(QIODevice::ReadOnly) ? QString::fromUtf8(maps.readAll()) : QString();
}

struct SafeVideoPlayerTest : PlayerTest {
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
        view = std::make_unique<SafeVideoPlayer>(playerModule(), &window);
        view->resize(window.size());
        view->show();
    }
    void open()
    {
        view->setUrl(numberedVideo(1));
        ASSERT_TRUE(showsInPlace({1, 0}));
    }

    PlayerPane &pane() { return *view->findChild<PlayerPane *>({}, Qt::FindDirectChildrenOnly); }
    FullScreenPlayer *fullScreen() { return view->findChild<FullScreenPlayer *>(); }
    MediaPlayer &player()
    {
        MediaPlayer *const shown = view->isFullScreen()
            ? fullScreen()->findChild<PlayerPane *>()->player()
            : pane().player();
        if (!shown)
            throw std::logic_error("no player is shown");
        return *shown;
    }
    static std::optional<FrameNumber> pictureIn(QWidget &widget)
    {
        auto *const surface = widget.findChild<QOpenGLWidget *>();
        if (!surface)
            return {};
        // As wide as the test videos, whose numbers stand at fixed places.
        QImage picture = drawnPicture(*surface);
        const double ratio = 16.0 / 9;
        const int height = std::min(picture.height(), qRound(picture.width() / ratio));
        picture = picture.copy((picture.width() - qRound(height * ratio)) / 2,
                               (picture.height() - height) / 2, qRound(height * ratio), height);
        return readFrameNumber(picture.scaled(320, 180));
    }
    bool showsInPlace(const FrameNumber &number)
    {
        return waitUntil([&] { return pictureIn(pane()) == number; });
    }
    bool showsInFullScreen(const FrameNumber &number)
    {
        return waitUntil([&] { return fullScreen() && pictureIn(*fullScreen()) == number; });
    }
    void jumpTo(int frame)
    {
        player().seek(frame / framesPerSecond, {});
        ASSERT_TRUE(showsInPlace({1, frame}));
    }
    void enterFullScreen()
    {
        pane().setFocus();
        QTest::keyClick(&pane(), Qt::Key_F);
        ASSERT_TRUE(view->isFullScreen());
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
    EXPECT_TRUE(showsInPlace({2, 0}));
    EXPECT_FALSE(player().isPlaying());
    view->setUrl({});
    EXPECT_EQ(pane().player(), nullptr);
}

TEST_F(SafeVideoPlayerTest, fullScreenThereAndBackKeepsThePosition)
{
    open();
    jumpTo(50);
    enterFullScreen();
    EXPECT_TRUE(showsInFullScreen({1, 50}));
    EXPECT_EQ(fullScreen()->size(), fullScreen()->screen()->size());
    QTest::keyClick(fullScreen()->findChild<PlayerPane *>(), Qt::Key_Escape);
    EXPECT_FALSE(view->isFullScreen());
    EXPECT_TRUE(showsInPlace({1, 50}));
    enterFullScreen();
    EXPECT_TRUE(fullScreen()->close());
    EXPECT_FALSE(view->isFullScreen());
    EXPECT_TRUE(showsInPlace({1, 50}));

    player().play();
    enterFullScreen();
    EXPECT_TRUE(player().isPlaying());
    QTest::mouseDClick(fullScreen()->findChild<PlayerPane *>(), Qt::LeftButton, {}, {20, 20});
    EXPECT_FALSE(view->isFullScreen());
    EXPECT_TRUE(player().isPlaying());
    EXPECT_GE(player().positionSeconds(), 50 / framesPerSecond);
}

TEST_F(SafeVideoPlayerTest, hiddenItPausesAndKeepsItsPlace)
{
    open();
    jumpTo(50);
    enterFullScreen();
    MediaPlayer &same = player();
    same.play();
    window.hide();
    EXPECT_FALSE(view->isFullScreen());
    EXPECT_FALSE(same.isPlaying());
    EXPECT_EQ(pane().player(), nullptr);
    const double position = same.positionSeconds();
    window.show();
    EXPECT_EQ(&player(), &same);
    EXPECT_TRUE(waitUntil([&] { return pictureIn(pane()).has_value(); }));
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
    EXPECT_TRUE(QApplication::topLevelWidgets().contains(&window));

    makeView();
    view->setUrl(numberedVideo(2));
    enterFullScreen();
    QTest::keyClick(fullScreen()->findChild<PlayerPane *>(), Qt::Key_F);
    view.reset();
}

TEST_F(SafeVideoPlayerTest, nothingIsLoadedBeforeThereIsAVideo)
{
    const QTemporaryDir folder;
    const QString name = u"/clipwren_player.so"_s;
    ASSERT_TRUE(QFile::copy(QStringLiteral(CLIPWREN_PLAYER_FOLDER) + name, folder.path() + name));
    PlayerModule module({folder.path()});
    PreviewPlayerController controller([&] { return module.makePlayer(); });
    SafeVideoPlayer file(module, &window);
    PreviewPlayerView preview(controller, module, &window);
    file.show();
    preview.show();
    EXPECT_FALSE(loadedFiles().contains(folder.path()));
}

} // namespace
} // namespace clipwren
