#include "ui/downloader/FilmStrip.h"

#include "support/FakeDownloader.h"
#include "support/ScriptedVideoOutput.h"
#include "support/Widgets.h"
#include "ui/downloader/PreviewPane.h"
#include "ui/downloader/TrimSection.h"

#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <gmock/gmock.h>

namespace clipwren::test {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

const QUrl stream(u"https://stream.example/1"_s);

/// Players with pictures, the newest last. Null once they are gone.
class FilmStripTest : public testing::Test {
protected:
    std::unique_ptr<MediaPlayer> makePlayer()
    {
        auto player = std::make_unique<ScriptedPlayer>(m_log);
        auto *output = new ScriptedVideoOutput(player.get());
        player->setVideoOutput(output);
        m_players << player.get();
        m_outputs << output;
        return player;
    }
    ScriptedPlayer &player() { return *m_players.last(); }
    ScriptedVideoOutput &output() { return *m_outputs.last(); }
    /// Finishes the seek that runs, then draws.
    void finishSeek(const QColor &color)
    {
        player().finishSeek();
        output().draw(color);
    }
    static void settle()
    {
        for (int turn = 0; turn < 8; ++turn)
            QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    QStringList m_log;
    QList<QPointer<ScriptedPlayer>> m_players;
    QList<QPointer<ScriptedVideoOutput>> m_outputs;
};

TEST_F(FilmStripTest, theLoaderTakesThePictureThatASeekLedTo)
{
    FilmStripLoader loader(makePlayer(), std::chrono::milliseconds(1));
    QStringList taken;
    QObject::connect(
        &loader, &FilmStripLoader::taken, &loader, [&](qsizetype index, const QImage &picture) {
            taken << QString::number(index) + u' ' + QColor(picture.pixel(0, 0)).name();
        });
    QSignalSpy finished(&loader, &FilmStripLoader::finished);
    loader.start(stream, {5, 1, 2, 9}, {8, 6});
    EXPECT_EQ(output().size(), QSize(8, 6));
    output().draw(Qt::gray); // of the start
    player().becomeReady();
    EXPECT_EQ(taken, QStringList());

    player().finishSeek();
    EXPECT_EQ(taken, QStringList());
    output().draw(Qt::red);
    // This one is drawn before the seek is told to have ended.
    output().draw(Qt::green);
    player().finishSeek();
    EXPECT_TRUE(QTest::qWaitFor([&] { return taken.size() == 2; }));
    player().finishSeek(false);
    finishSeek(Qt::blue);
    EXPECT_THAT(taken, ElementsAre(u"0 #ff0000"_s, u"1 #00ff00"_s, u"3 #0000ff"_s));
    EXPECT_THAT(m_log,
                ElementsAre(u"load https://stream.example/1"_s, u"seek 5"_s, u"seek 1"_s,
                            u"seek 2"_s, u"seek 9"_s));
    EXPECT_EQ(finished.size(), 1);
}

TEST_F(FilmStripTest, theLoaderEndsWithAFilmThatCannotBeShown)
{
    for (const bool hasOutput : {true, false}) {
        std::unique_ptr<MediaPlayer> made = makePlayer();
        if (!hasOutput)
            player().setVideoOutput(nullptr);
        FilmStripLoader loader(std::move(made));
        QSignalSpy finished(&loader, &FilmStripLoader::finished);
        QSignalSpy taken(&loader, &FilmStripLoader::taken);
        loader.start(stream, {5, 1}, {8, 6});
        if (hasOutput) {
            player().becomeReady();
            player().finishSeek();
            player().fail(u"gone"_s);
        }
        output().draw(Qt::red);
        EXPECT_EQ(finished.size(), 1) << hasOutput;
        EXPECT_EQ(taken.size(), 0);
    }
}

TEST_F(FilmStripTest, showsPicturesWhereTheirTimesAreAndDimsWhatIsCutAway)
{
    FilmStrip strip([this] { return makePlayer(); }, std::chrono::milliseconds(0));
    strip.resize(360, strip.height());
    strip.setFilm(FilmStrip::Film{stream, 80, 2.0});
    strip.setRange({20, 60});
    settle();
    EXPECT_EQ(m_players.size(), 0) << "before it is shown";
    strip.show();
    settle();
    EXPECT_EQ(output().size(), QSize(90, 45)) << "fills a cell of 90 by 44";
    player().becomeReady();
    const QList<QColor> colors{Qt::red, Qt::cyan, Qt::magenta, Qt::yellow};
    for (const int index : {0, 2, 1, 3})
        finishSeek(colors[index]);
    EXPECT_THAT(m_log,
                ElementsAre(u"load https://stream.example/1"_s, u"seek 10"_s, u"seek 50"_s,
                            u"seek 30"_s, u"seek 70"_s));
    settle();
    EXPECT_TRUE(m_players.first().isNull()) << "its work is done";

    const auto isShown = [&](int index) {
        return strip.grab().toImage().pixelColor(45 + 90 * index, 20) == colors[index];
    };
    for (const int index : {0, 1, 2, 3})
        EXPECT_EQ(isShown(index), index == 1 || index == 2) << index;
    strip.setRange({0, 80});
    EXPECT_TRUE(isShown(0));

    strip.hide();
    strip.show();
    EXPECT_FALSE(isShown(0)) << "freed while nobody saw them";
}

TEST_F(FilmStripTest, followsWidthAndFilmAndTriesNoneAgainThatFailed)
{
    FilmStrip strip([this] { return makePlayer(); }, std::chrono::milliseconds(1));
    strip.resize(360, strip.height());
    strip.setFilm(FilmStrip::Film{stream, 80, {}});
    strip.show();
    settle();
    strip.resize(450, strip.height());
    EXPECT_TRUE(QTest::qWaitFor([&] { return m_players.size() == 2; }));
    EXPECT_TRUE(m_players.first().isNull());
    strip.setFilm(FilmStrip::Film{QUrl(u"https://stream.example/2"_s), 80, {}});
    EXPECT_TRUE(m_players.last().isNull());
    settle();
    EXPECT_EQ(m_log.last(), u"load https://stream.example/2");
    QSignalSpy failed(&strip, &FilmStrip::failed);
    player().fail(u"gone"_s);
    EXPECT_EQ(failed.size(), 1);
    strip.resize(900, strip.height());
    QTest::qWait(20);
    EXPECT_EQ(m_players.size(), 3);
}

TEST_F(FilmStripTest, theTrimSectionHasAStripWhereThereAreBackgroundPlayers)
{
    for (const bool canHaveStrip : {true, false}) {
        FakeDownloader fake;
        ApplicationContext context = fake.context();
        if (canHaveStrip)
            context.makeBackgroundPlayer = [this] { return makePlayer(); };
        DownloaderView view(context);
        TrimSection section(view);
        section.resize(500, 500);
        QObject::connect(&view, &DownloaderView::changed, &section, &TrimSection::render);
        view.setUrlText(u"https://site.example/1"_s);
        view.fetchInfo(false);
        EXPECT_TRUE(reaches(view, Phase::confirming));
        view.confirm();
        section.show();
        view.setTrimEnabled(true);
        auto *strip = section.findChild<FilmStrip *>();
        EXPECT_EQ(strip->isVisible(), canHaveStrip) << "while its address is looked up";
        EXPECT_TRUE(QTest::qWaitFor([&] { return fake.lastPlayer != nullptr; }, 10'000));
        EXPECT_TRUE(QTest::qWaitFor([&] { return !canHaveStrip || !m_players.isEmpty(); }));
        EXPECT_EQ(strip->isVisible(), canHaveStrip);
        if (!canHaveStrip)
            continue;

        view.setTrimEnabled(false);
        EXPECT_TRUE(m_players.last().isNull());

        view.setTrimEnabled(true);
        settle();
        player().fail(u"gone"_s);
        EXPECT_FALSE(strip->isVisible());
        for (const bool on : {false, true})
            view.setTrimEnabled(on);
        EXPECT_TRUE(strip->isVisible()) << "another try";
    }
}

} // namespace
} // namespace clipwren::test
