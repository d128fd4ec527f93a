#include "ScreenTest.h"
#include "core/text/Duration.h"
#include "ui/components/Slider.h"
#include "ui/downloader/PreviewPane.h"
#include "ui/downloader/TimeField.h"
#include "ui/downloader/TrimSlider.h"

#include <QAccessible>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

#include <gmock/gmock.h>

namespace clipwren::test {
namespace {

using namespace Qt::StringLiterals;

using Handle = TrimSlider::Handle;

class TrimSectionTest : public ScreenTest {
protected:
    /// Ready, with the preview loaded and the range to be chosen.
    void openTrim()
    {
        getReady();
        EXPECT_TRUE(waitFor([&] { return m_fake.lastPlayer != nullptr; }));
        click(u"Trim before saving"_s);
        m_fake.lastPlayer->becomeReady();
        m_fake.playerLog.clear();
        settle();
    }
    TrimSlider *slider() { return m_screen.findChild<TrimSlider *>(); }
    TimeField *timeField(TrimSlider::Handle which)
    {
        return m_screen.findChildren<TimeField *>().at(which == Handle::start ? 0 : 1);
    }
    /// What the read-outs of start and end are called.
    QStringList times()
    {
        return {nameOf(*timeField(Handle::start)), nameOf(*timeField(Handle::end))};
    }
    TrimRange range() const { return {m_view.trimStart(), m_view.trimEnd()}; }
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

TEST_F(TrimSectionTest, aMovedHandleChangesTheRangeAndShowsTheFrameInTenths)
{
    openTrim();
    const QStringList whole{u"Start 0:00"_s, u"End 1:01"_s};
    EXPECT_EQ(times(), whole);
    QTest::mousePress(slider(), Qt::LeftButton, {}, QPoint(2, 13));
    EXPECT_EQ(times(), QStringList({u"Start 0:00.0"_s, u"End 1:00.5"_s}));
    QTest::mouseRelease(slider(), Qt::LeftButton, {}, QPoint(2, 13));
    EXPECT_EQ(times(), whole) << "with the focus on the handle";
    m_fake.lastPlayer->finishSeek();
    m_fake.playerLog.clear();

    auto *end = slider()->findChildren<Slider *>().last();
    end->setFocus();
    press(end, Qt::Key_PageDown);
    EXPECT_EQ(m_view.trimEnd(), 50.5);
    EXPECT_THAT(m_fake.playerLog, testing::ElementsAre(u"pause"_s, u"seek 50.5"_s));
    EXPECT_EQ(times(), QStringList({u"Start 0:00.0"_s, u"End 0:50.5"_s}));
    EXPECT_TRUE(shows(u"Clip 0:51"_s));
    press(Qt::Key_Tab);
    EXPECT_EQ(times().last(), u"End 0:51");

    m_fake.lastPlayer->finishSeek();
    click(u"Reset"_s);
    EXPECT_EQ(m_view.trimEnd(), 60.5);
    EXPECT_EQ(slider()->range(), (TrimRange{0, 60.5}));
    EXPECT_EQ(m_fake.playerLog.last(), u"seek 0");
}

TEST_F(TrimSectionTest, aTypedTimeMovesItsEndAsAHandleDoes)
{
    openTrim();
    const struct {
        Handle field;
        const char *typed;
        Qt::Key ending;
        TrimRange expected; // from 10 to 20.54
        const char *shownThere; // by the preview
    } cases[] = {
        {Handle::start, "0:15.3", Qt::Key_Return, {15.3, 20.54}, "seek 15.3"},
        {Handle::start, "12", Qt::Key_Tab, {12, 20.54}, "seek 12"},
        {Handle::start, " 1:02:05 ", Qt::Key_Enter, {20.54 - 0.1, 20.54}, "seek 20.44"},
        {Handle::end, "0:30.25", Qt::Key_Return, {10, 30.25}, "seek 30.25"},
        {Handle::end, "3", Qt::Key_Backtab, {10, 10.1}, "seek 10.1"},
        {Handle::end, "61", Qt::Key_Return, {10, 60.5}, "seek 60.5"},
        {Handle::end, "30", Qt::Key_Escape, {10, 20.54}, nullptr},
        {Handle::end, "0:20.5", Qt::Key_Return, {10, 20.54}, nullptr}, // as it was shown
        {Handle::end, "1:", Qt::Key_Tab, {10, 20.54}, nullptr},
        {Handle::end, "soon", Qt::Key_Tab, {10, 20.54}, nullptr},
    };
    for (const auto &c : cases) {
        m_view.setTrimRange(10, 20.54);
        settle();
        m_fake.playerLog.clear();
        TimeField *field = timeField(c.field);
        field->setFocus(Qt::TabFocusReason);
        EXPECT_EQ(field->text(), c.field == Handle::start ? u"0:10.0" : u"0:20.5");
        QTest::keyClicks(field, QLatin1String(c.typed));
        EXPECT_EQ(m_view.trimEnd(), 20.54) << "before it is committed";
        press(field, c.ending);
        EXPECT_EQ(range(), c.expected) << c.typed;
        EXPECT_EQ(m_fake.playerLog.value(1), QLatin1String(c.shownThere)) << c.typed;
        EXPECT_FALSE(field->hasFocus()) << c.typed;
        EXPECT_EQ(field->text(),
                  formatDuration(c.field == Handle::start ? c.expected.start : c.expected.end));
        if (m_fake.lastPlayer->isSeeking())
            m_fake.lastPlayer->finishSeek();
    }
}

TEST_F(TrimSectionTest, saysWhyATextIsNoTimeAndCountsOneStillBeingTyped)
{
    openTrim();
    TimeField *start = timeField(Handle::start);
    const auto description = [start] {
        return QAccessible::queryAccessibleInterface(start)->text(QAccessible::Description);
    };
    const QString help = description();
    QTest::mouseClick(start, Qt::LeftButton);
    EXPECT_EQ(start->selectedText(), u"0:00.0");
    for (const auto &[typed, isTaken] : {std::pair("1:", true), {"1:0", true}, {"1:0x", false}}) {
        start->selectAll();
        QTest::keyClicks(start, QLatin1String(typed));
        EXPECT_EQ(description() == help, isTaken) << typed;
    }
    press(start, Qt::Key_Return);
    EXPECT_EQ(start->selectedText(), u"0:00.0") << "to be typed anew";
    EXPECT_TRUE(description().startsWith(u"Not a time.")) << description().toStdString();
    press(start, Qt::Key_Return);
    EXPECT_FALSE(start->hasFocus());
    EXPECT_EQ(description(), help);
    EXPECT_EQ(m_fake.playerLog, QStringList());

    m_fake.onDownload(u"exec sleep 60"_s);
    start->setFocus();
    QTest::keyClicks(start, u"0:15.3"_s);
    press(start, Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(m_view.phase(), Phase::downloading);
    EXPECT_EQ(m_view.trimStart(), 15.3) << "a time that is still being typed counts";
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

TEST_F(TrimSectionTest, whatTheUserOpensIsBroughtIntoView)
{
    getReady();
    auto *page = m_screen.findChild<QScrollArea *>();
    const auto isAllSeen = [](const QWidget *widget) {
        return widget->visibleRegion().boundingRect() == widget->rect();
    };
    // In windows of 1120 × 900 and 820 × 520, and in one that is too low.
    for (const auto &[size, seesDownload] :
         {std::pair(QSize(840, 848), true), {{540, 468}, true}, {{540, 330}, false}}) {
        m_screen.resize(size);
        settle();
        page->ensureWidgetVisible(button(u"Trim before saving"_s));
        click(u"Trim before saving"_s);
        EXPECT_TRUE(QTest::qWaitFor([&] { return isAllSeen(slider()); })) << size.height();
        EXPECT_TRUE(isAllSeen(m_screen.findChild<PreviewPane *>())) << size.height();
        EXPECT_EQ(isAllSeen(button(u"Download"_s)), seesDownload) << size.height();
        click(u"Trim before saving"_s);
    }
}

TEST_F(TrimSectionTest, keysWorkWhereverNobodyTypes)
{
    openTrim();
    m_view.setTrimRange(10, 20);
    QWidget *player = shown<QWidget>(m_screen, u"Video"_s);
    const struct {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        const char *told; // to the player
    } cases[] = {{Qt::Key_Comma, {}, "step -1"},
                 {Qt::Key_Period, {}, "step 1"},
                 {Qt::Key_Space, {}, "play"},
                 {Qt::Key_Space, {}, "pause"},
                 {Qt::Key_Space, Qt::ShiftModifier, "seek 10|end 20|play"},
                 {Qt::Key_Period, {}, "no end|step 1"},
                 {Qt::Key_Space, Qt::ControlModifier, ""},
                 {Qt::Key_I, Qt::ControlModifier, ""}};
    // The one that was clicked last leaves its keys to the section.
    click(u"Reset"_s);
    m_fake.lastPlayer->finishSeek();
    for (QWidget *focus : {QApplication::focusWidget(), player,
                           static_cast<QWidget *>(slider()->findChild<Slider *>())}) {
        focus->setFocus();
        m_view.setTrimRange(10, 20);
        for (const auto &c : cases) {
            m_fake.playerLog.clear();
            press(focus, c.key, c.modifiers);
            if (m_fake.lastPlayer->isSeeking())
                m_fake.lastPlayer->finishSeek();
            EXPECT_EQ(m_fake.playerLog.join(u'|'), QLatin1String(c.told))
                << nameOf(*focus).toStdString();
        }
    }

    m_fake.playerLog.clear();
    for (const Qt::Key key : {Qt::Key_Comma, Qt::Key_Space}) {
        QKeyEvent held(QEvent::KeyPress, key, {}, {}, true);
        QApplication::sendEvent(player, &held);
    }
    EXPECT_EQ(m_fake.playerLog, QStringList(u"step -1"_s));

    m_fake.playerLog.clear();
    QTest::keyClicks(field(u"Save as"_s), u" ,.io"_s);
    m_view.setTrimEnabled(false);
    settle();
    press(slider()->findChild<Slider *>(), Qt::Key_Period);
    EXPECT_EQ(m_fake.playerLog.filter(u"step"_s), QStringList());
    EXPECT_EQ(range(), (TrimRange{10, 20}));
}

TEST_F(TrimSectionTest, theKeysIAndOSetTheEndsToWhatIsShown)
{
    openTrim();
    const std::tuple<Qt::Key, double, TrimRange> cases[] = {
        {Qt::Key_I, 12.5, {12.5, 20}}, // from 10 to 20, of 60.5
        {Qt::Key_I, 1.0666667, {1.066, 20}}, // not behind the frame
        {Qt::Key_I, 33.3, {33.3, 60.5}}, // a new clip begins
        {Qt::Key_I, 19.95, {19.95, 60.5}},
        {Qt::Key_I, 60.48, {60.4, 60.5}},
        {Qt::Key_O, 12.5, {10, 12.5}},
        {Qt::Key_O, 5, {0, 5}},
        {Qt::Key_O, 0, {0, 0.1}},
        {Qt::Key_O, 61, {10, 60.5}},
    };
    for (const auto &[key, shown, expected] : cases) {
        m_view.setTrimRange(10, 20);
        m_view.preview().seek(shown);
        m_fake.lastPlayer->finishSeek();
        m_fake.playerLog.clear();
        press(slider()->findChild<Slider *>(), key);
        EXPECT_EQ(range(), expected) << shown;
        EXPECT_EQ(slider()->range(), expected);
        EXPECT_EQ(m_fake.playerLog, QStringList()) << "the picture stays";
    }
}

TEST_F(TrimSectionTest, tabReachesEveryControlFromTopToBottom)
{
    openTrim();
    m_view.setCustomTitle(u"Other"_s);
    settle();
    EXPECT_EQ(tabStops(*field(u"Video address"_s)),
              QStringList({u"Video address"_s, u"Clear"_s, u"Paste"_s, u"Save as"_s,
                           u"Reset to the video's original title"_s, m_view.selectedOption().title,
                           u"Trim before saving"_s, u"Video"_s, u"Play"_s, u"—"_s, u"Mute"_s,
                           u"Volume"_s, u"Start"_s, u"End"_s, u"Start 0:00.0"_s, u"End 1:00.5"_s,
                           u"Play Clip"_s, u"Reset"_s, u"Download"_s}));
}

} // namespace
} // namespace clipwren::test
