#include "workflow/preview/PreviewPlayerController.h"

#include "support/ScriptedPlayer.h"

#include <QCoreApplication>
#include <QPointer>
#include <QSignalSpy>

#include <gtest/gtest.h>
#include <limits>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;
using test::ScriptedPlayer;

const QUrl firstUrl(u"https://video.example/1"_s);
const QUrl secondUrl(u"https://video.example/2"_s);
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

TEST_F(PreviewPlayerControllerTest, aFailureLeavesNoPlayerAndIsShownUntilALaterStreamIsReady)
{
    for (const auto &[failure, shown] : {std::pair(u"No such video."_s, u"No such video."_s),
                                         std::pair(QString(), u"Preview unavailable"_s)}) {
        controller->load(firstUrl);
        players.last()->fail(failure);
        EXPECT_EQ(controller->player(), nullptr);
        EXPECT_FALSE(controller->isLoading());
        deleteReleasedPlayers();
        EXPECT_TRUE(players.last().isNull());
        controller->unload();
        EXPECT_EQ(controller->loadError(), shown);
        controller->load(secondUrl);
        EXPECT_EQ(controller->loadError(), shown);
        players.last()->becomeReady();
        EXPECT_EQ(controller->loadError(), std::nullopt);
    }
}

TEST_F(PreviewPlayerControllerTest, aReplacedStreamNoLongerReports)
{
    controller->load(firstUrl);
    controller->load(secondUrl);
    ScriptedPlayer &replaced = *players.first();
    replaced.fail(u"late"_s);
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
    const std::tuple<double, double, const char *> cases[] = {{2, 4, "seek 2|end 4|play"},
                                                              {10, 10, "seek 10|end 10.05|play"},
                                                              {10, 3, "seek 10|end 10.05|play"},
                                                              {-3, 5, "seek 0|end 5|play"},
                                                              {1, infinity, "seek 1|play"},
                                                              {notANumber, 5, ""},
                                                              {infinity, 5, ""},
                                                              {1, notANumber, ""}};
    for (const auto &[start, end, told] : cases) {
        ScriptedPlayer &player = loadReady();
        controller->playRange(start, end);
        player.finishSeek();
        EXPECT_EQ(log, lines(told)) << start << " to " << end;
    }
}

TEST_F(PreviewPlayerControllerTest, aRangeEndsOnceEvenWhenItsSeekFailed)
{
    ScriptedPlayer &player = loadReady();
    controller->playRange(2, 4);
    player.finishSeek(false);
    EXPECT_TRUE(controller->isPlaying());
    player.reachEndTime();
    EXPECT_FALSE(controller->isPlaying());
    EXPECT_EQ(player.endTime(), std::nullopt);
}

TEST_F(PreviewPlayerControllerTest, aSeekEndsARangeAndStaysPaused)
{
    const std::pair<double, const char *> cases[] = {{7.5, "no end|pause|seek 7.5"},
                                                     {-2, "no end|pause|seek 0"},
                                                     {notANumber, ""},
                                                     {infinity, ""},
                                                     {-infinity, ""}};
    for (const auto &[to, told] : cases) {
        ScriptedPlayer &player = loadReady();
        controller->playRange(2, 4);
        player.finishSeek();
        log.clear();
        controller->seek(to);
        EXPECT_EQ(log, lines(told)) << to;
        EXPECT_EQ(controller->isPlaying(), log.isEmpty()) << to;
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
        EXPECT_FALSE(log.contains(u"play"_s));
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
