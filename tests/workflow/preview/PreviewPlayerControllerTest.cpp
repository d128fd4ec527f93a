#include "workflow/preview/PreviewPlayerController.h"

#include "support/ScriptedPlayer.h"

#include <QCoreApplication>
#include <QPointer>
#include <QSignalSpy>

#include <gtest/gtest.h>
#include <limits>

namespace clipwren {
namespace {

using test::ScriptedPlayer;

const QUrl firstUrl(QStringLiteral("https://video.example/1"));
const QUrl secondUrl(QStringLiteral("https://video.example/2"));
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

struct PreviewPlayerControllerTest : testing::Test {
    QStringList log;
    // The players made, the newest last; null once they are gone.
    QList<QPointer<ScriptedPlayer>> players;
    std::unique_ptr<PreviewPlayerController> controller =
        std::make_unique<PreviewPlayerController>([this] {
            auto player = std::make_unique<ScriptedPlayer>(log);
            players << player.get();
            return player;
        });

    ~PreviewPlayerControllerTest() override { deleteReleasedPlayers(); }

    ScriptedPlayer &loadReady(const QUrl &url = firstUrl)
    {
        controller->load(url);
        players.last()->becomeReady();
        log.clear();
        return *players.last();
    }
    static void deleteReleasedPlayers()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    QStringList lines(const char *text) const
    {
        return QString::fromUtf8(text).split(u'|', Qt::SkipEmptyParts);
    }
};

TEST_F(PreviewPlayerControllerTest, isLoadingUntilTheStreamIsReady)
{
    QSignalSpy changes(controller.get(), &PreviewPlayerController::changed);
    controller->load(firstUrl);
    EXPECT_EQ(log, lines("load https://video.example/1"));
    EXPECT_TRUE(controller->isLoading());
    EXPECT_EQ(controller->player(), players.last());
    const auto changesOfLoading = changes.size();
    EXPECT_GT(changesOfLoading, 0);

    players.last()->becomeReady();
    EXPECT_FALSE(controller->isLoading());
    EXPECT_FALSE(controller->isPlaying());
    EXPECT_GT(changes.size(), changesOfLoading);
}

TEST_F(PreviewPlayerControllerTest, aFailureLeavesNoPlayerAndSaysWhy)
{
    struct Case {
        QString failure;
        QString shown;
    };
    for (const auto &[failure, shown] :
         {Case{QStringLiteral("No such video."), QStringLiteral("No such video.")},
          Case{{}, QStringLiteral("Preview unavailable")}}) {
        controller->load(firstUrl);
        players.last()->fail(failure);
        EXPECT_EQ(controller->player(), nullptr);
        EXPECT_FALSE(controller->isLoading());
        EXPECT_EQ(controller->loadError(), shown);
        deleteReleasedPlayers();
        EXPECT_TRUE(players.last().isNull());
    }
}

TEST_F(PreviewPlayerControllerTest, keepsAFailureUntilALaterStreamIsReady)
{
    controller->load(firstUrl);
    players.last()->fail(QStringLiteral("broken"));
    controller->unload();
    EXPECT_EQ(controller->loadError(), QStringLiteral("broken"));
    controller->load(secondUrl);
    EXPECT_EQ(controller->loadError(), QStringLiteral("broken"));
    players.last()->becomeReady();
    EXPECT_EQ(controller->loadError(), std::nullopt);
}

TEST_F(PreviewPlayerControllerTest, aReplacedStreamNoLongerReports)
{
    controller->load(firstUrl);
    controller->load(secondUrl);
    ScriptedPlayer &replaced = *players.first();
    replaced.fail(QStringLiteral("late"));
    replaced.play();
    EXPECT_TRUE(controller->isLoading());
    EXPECT_FALSE(controller->isPlaying());
    EXPECT_EQ(controller->loadError(), std::nullopt);
    EXPECT_EQ(controller->player(), players.last());
}

TEST_F(PreviewPlayerControllerTest, unloadingPausesAndLeavesNothing)
{
    ScriptedPlayer &player = loadReady();
    controller->playRange(2, 4);
    player.finishSeek();
    EXPECT_TRUE(controller->isPlaying());
    log.clear();
    controller->unload();
    EXPECT_EQ(log, lines("no end|pause"));
    EXPECT_EQ(controller->player(), nullptr);
    EXPECT_FALSE(controller->isPlaying());
    EXPECT_FALSE(controller->isLoading());

    controller->seek(1);
    controller->playRange(1, 2);
    EXPECT_EQ(log, lines("no end|pause"));
}

TEST_F(PreviewPlayerControllerTest, playsARangeToItsEnd)
{
    struct Case {
        double start;
        double end;
        const char *told;
    };
    for (const Case &range :
         {Case{2, 4, "seek 2|end 4|play"}, Case{10, 10, "seek 10|end 10.05|play"},
          Case{10, 3, "seek 10|end 10.05|play"}, Case{-3, 5, "seek 0|end 5|play"},
          Case{1, infinity, "seek 1|play"}, Case{notANumber, 5, ""}, Case{infinity, 5, ""},
          Case{1, notANumber, ""}}) {
        ScriptedPlayer &player = loadReady();
        controller->playRange(range.start, range.end);
        player.finishSeek();
        EXPECT_EQ(log, lines(range.told)) << range.start << " to " << range.end;
    }
}

TEST_F(PreviewPlayerControllerTest, aRangeEndsOnceAndIsForgotten)
{
    ScriptedPlayer &player = loadReady();
    controller->playRange(2, 4);
    // Played even when the seek did not come through.
    player.finishSeek(false);
    EXPECT_TRUE(controller->isPlaying());
    player.reachEndTime();
    EXPECT_FALSE(controller->isPlaying());
    EXPECT_EQ(player.endTime(), std::nullopt);
}

TEST_F(PreviewPlayerControllerTest, aSeekEndsARangeAndStaysPaused)
{
    struct Case {
        double to;
        const char *told;
        bool stillPlaying;
    };
    for (const Case &seek :
         {Case{7.5, "no end|pause|seek 7.5", false}, Case{-2, "no end|pause|seek 0", false},
          Case{notANumber, "", true}, Case{infinity, "", true}, Case{-infinity, "", true}}) {
        ScriptedPlayer &player = loadReady();
        controller->playRange(2, 4);
        player.finishSeek();
        log.clear();
        controller->seek(seek.to);
        EXPECT_EQ(log, lines(seek.told)) << seek.to;
        EXPECT_EQ(controller->isPlaying(), seek.stillPlaying) << seek.to;
    }
}

TEST_F(PreviewPlayerControllerTest, aRangeEndedBeforeItsFirstFrameNeverPlays)
{
    const QList<std::function<void()>> endings{
        [this] { controller->seek(5); },
        [this] { controller->unload(); },
        [this] { controller->load(secondUrl); },
        [this] { controller.reset(); },
    };
    for (const auto &end : endings) {
        const QPointer<ScriptedPlayer> player = &loadReady();
        controller->playRange(2, 4);
        end();
        while (player && player->isSeeking())
            player->finishSeek();
        EXPECT_FALSE(log.contains(QStringLiteral("play")));
        EXPECT_FALSE(controller && controller->isPlaying());
    }
}

TEST_F(PreviewPlayerControllerTest, aNewRangeReplacesTheOneThatPlays)
{
    ScriptedPlayer &player = loadReady();
    controller->playRange(2, 4);
    controller->playRange(6, 8);
    player.finishSeek();
    player.finishSeek();
    EXPECT_EQ(log, lines("seek 2|seek 6|end 8|play"));
}

TEST_F(PreviewPlayerControllerTest, followsADraggedHandleToWhereItIsLetGo)
{
    ScriptedPlayer &player = loadReady();
    for (int step = 0; step <= 100; ++step)
        controller->seek(step / 10.0);
    player.finishSeek();
    log.removeAll(QStringLiteral("pause"));
    EXPECT_EQ(log, lines("seek 0|seek 10"));
}

TEST_F(PreviewPlayerControllerTest, makesTheSeekAskedForWhileLoadingOnceReady)
{
    controller->load(firstUrl);
    controller->seek(3);
    log.clear();
    players.last()->becomeReady();
    EXPECT_EQ(log, lines("seek 3"));
}

} // namespace
} // namespace clipwren
