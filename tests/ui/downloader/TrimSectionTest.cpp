#include "ScreenTest.h"
#include "ui/downloader/TrimHandle.h"
#include "ui/downloader/TrimSlider.h"

#include <QTest>

#include <gmock/gmock.h>

namespace clipwren::test {
namespace {

using namespace Qt::StringLiterals;

class TrimSectionTest : public ScreenTest {
protected:
    /// Ready, with the preview loaded and the range to be chosen.
    void openTrim()
    {
        getReady();
        EXPECT_TRUE(QTest::qWaitFor([&] { return m_fake.lastPlayer != nullptr; }, 10'000));
        click(u"Trim before saving"_s);
        m_fake.lastPlayer->becomeReady();
        m_fake.playerLog.clear();
        settle();
    }
    TrimSlider *slider() { return m_screen.findChild<TrimSlider *>(); }
};

TEST_F(TrimSectionTest, theSwitchOpensTheChoiceOfAKnownLength)
{
    getReady();
    EXPECT_FALSE(slider()->isVisible());
    for (const bool open : {true, false}) {
        click(u"Trim before saving"_s);
        EXPECT_EQ(m_view.trimEnabled(), open);
        EXPECT_EQ(slider()->isVisible(), open);
    }
    m_fake.onLookup(metadata(u"\"title\":\"Live\""_s));
    getReady();
    click(u"Trim before saving"_s);
    EXPECT_TRUE(m_view.trimEnabled());
    EXPECT_FALSE(slider()->isVisible());
}

TEST_F(TrimSectionTest, scrubbingChangesTheRangeAndShowsTheFrame)
{
    openTrim();
    auto *end = slider()->findChildren<TrimHandle *>().last();
    end->setFocus();
    press(end, Qt::Key_PageDown);
    EXPECT_EQ(m_view.trimEnd(), 50.5);
    EXPECT_THAT(m_fake.playerLog, testing::ElementsAre(u"pause"_s, u"seek 50.5"_s));
    for (const QString &stat : {u"Start 0:00"_s, u"End 0:51"_s, u"Clip 0:51"_s})
        EXPECT_TRUE(shows(stat)) << stat.toStdString();

    m_fake.lastPlayer->finishSeek();
    click(u"Reset"_s);
    EXPECT_EQ(m_view.trimEnd(), 60.5);
    EXPECT_EQ(slider()->range(), (TrimRange{0, 60.5}));
    EXPECT_EQ(m_fake.playerLog.last(), u"seek 0");
}

TEST_F(TrimSectionTest, playsTheRangeOnceThereIsAPlayer)
{
    m_fake.onPreviewLookup(u"exec sleep 60"_s);
    getReady();
    click(u"Trim before saving"_s);
    EXPECT_FALSE(button(u"Play Clip"_s)->isEnabled());
    EXPECT_TRUE(shows(u"Loading preview…"_s));

    m_fake.onPreviewLookup(u"echo https://stream.example/preview.mp4"_s);
    m_view.resetAll();
    openTrim();
    EXPECT_FALSE(shows(u"Loading preview…"_s));
    m_view.setTrimRange(10, 20);
    click(u"Play Clip"_s);
    m_fake.lastPlayer->finishSeek();
    EXPECT_EQ(m_fake.lastPlayer->endTime(), 20);
    EXPECT_TRUE(m_view.preview().isPlaying());
    settle();

    m_fake.lastPlayer->fail(u"The stream is gone."_s);
    settle();
    EXPECT_TRUE(shows(u"The stream is gone."_s));
    EXPECT_FALSE(button(u"Play Clip"_s)->isEnabled());

    m_fake.onPreviewLookup(u"exit 1"_s);
    getReady();
    settle();
    EXPECT_FALSE(shows(u"The stream is gone."_s)) << "which was another video's";
}

TEST_F(TrimSectionTest, tabReachesEveryControlFromTopToBottom)
{
    openTrim();
    m_view.setCustomTitle(u"Other"_s);
    settle();
    EXPECT_EQ(
        tabStops(*field(u"Video address"_s)),
        QStringList({u"Video address"_s, u"Clear"_s, u"Paste"_s, u"Save as"_s,
                     u"Reset to the video's original title"_s, m_view.selectedOption().title,
                     u"Trim before saving"_s, u"Video"_s, u"Play"_s, u"—"_s, u"Mute"_s, u"Volume"_s,
                     u"Start"_s, u"End"_s, u"Play Clip"_s, u"Reset"_s, u"Download"_s}));
}

} // namespace
} // namespace clipwren::test
