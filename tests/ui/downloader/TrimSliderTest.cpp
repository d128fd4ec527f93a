#include "ui/downloader/TrimSlider.h"

#include "support/Widgets.h"
#include "ui/components/Slider.h"

#include <QAccessible>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace clipwren {
namespace {

using Handle = TrimSlider::Handle;
using Scrub = std::pair<Handle, double>;

/// A slider over 100 s in a shown window, with a track of 500 pixels: five for a second.
class TrimSliderTest : public testing::Test {
protected:
    TrimSliderTest()
    {
        auto *column = new QVBoxLayout(&m_window);
        column->addWidget(&m_slider);
        m_slider.setFixedWidth(518);
        m_slider.setDuration(100);
        m_slider.setRange({0, 100});
        QObject::connect(&m_slider, &TrimSlider::scrubbed, &m_window,
                         [this](double seconds, Handle handle) {
                             m_scrubs.append({handle, seconds});
                         });
        test::showWindow(m_window);
    }
    ~TrimSliderTest() override { m_slider.setParent(nullptr); }

    void press(int x) { QTest::mousePress(&m_slider, Qt::LeftButton, {}, {x, 13}); }
    void drag(int x) { QTest::mouseMove(&m_slider, {x, 13}); }
    void release(int x) { QTest::mouseRelease(&m_slider, Qt::LeftButton, {}, {x, 13}); }
    Slider *handle(Handle which)
    {
        return m_slider.findChildren<Slider *>().at(which == Handle::start ? 0 : 1);
    }

    TrimSlider m_slider;
    QWidget m_window;
    QList<Scrub> m_scrubs;
};

TEST_F(TrimSliderTest, dragsEachHandleAsFarAsTheOtherLetsIt)
{
    press(9);
    drag(259);
    EXPECT_EQ(m_slider.range(), (TrimRange{50, 100}));
    drag(9000);
    release(9000);
    EXPECT_EQ(m_slider.range(), (TrimRange{99.9, 100}));
    drag(259);
    m_slider.setRange({50, 100});
    press(509);
    drag(-20);
    EXPECT_EQ(m_slider.range(), (TrimRange{50, 50.1}));
    EXPECT_TRUE(m_slider.isAdjusting());
    m_window.hide(); // ends a drag too
    EXPECT_FALSE(m_slider.isAdjusting());
    const QList<Scrub> scrubs = {{Handle::start, 0},
                                 {Handle::start, 50},
                                 {Handle::start, 99.9},
                                 {Handle::end, 100},
                                 {Handle::end, 50.1}};
    EXPECT_EQ(m_scrubs, scrubs);
}

TEST_F(TrimSliderTest, keysAndAssistiveToolsMoveAHandle)
{
    const struct {
        Handle handle;
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        TrimRange expected; // from 20 to 60.54
    } cases[] = {
        {Handle::start, Qt::Key_Right, {}, {20.1, 60.54}},
        {Handle::start, Qt::Key_Left, {}, {19.9, 60.54}},
        {Handle::start, Qt::Key_Up, Qt::ShiftModifier, {21, 60.54}},
        {Handle::start, Qt::Key_PageUp, {}, {30, 60.54}},
        {Handle::start, Qt::Key_PageDown, {}, {10, 60.54}},
        {Handle::start, Qt::Key_Home, {}, {0, 60.54}},
        {Handle::start, Qt::Key_End, {}, {60.54 - 0.1, 60.54}},
        {Handle::end, Qt::Key_Down, {}, {20, 60.4}},
        {Handle::end, Qt::Key_Left, Qt::ShiftModifier, {20, 59.5}},
        {Handle::end, Qt::Key_End, {}, {20, 100}},
        {Handle::end, Qt::Key_Home, {}, {20, 20.1}},
        {Handle::end, Qt::Key_Right, Qt::ControlModifier, {20, 60.54}},
    };
    for (const auto &c : cases) {
        m_slider.setRange({20, 60.54});
        handle(c.handle)->setFocus();
        QTest::keyClick(handle(c.handle), c.key, c.modifiers);
        EXPECT_EQ(m_slider.range(), c.expected) << c.key;
    }

    m_slider.setRange({20, 75.2});
    QAccessibleInterface *seen = QAccessible::queryAccessibleInterface(handle(Handle::end));
    EXPECT_EQ(seen->role(), QAccessible::Slider);
    EXPECT_EQ(seen->text(QAccessible::Name), u"End");
    EXPECT_EQ(seen->text(QAccessible::Value), u"1:15");
    EXPECT_EQ(seen->valueInterface()->currentValue().toDouble(), 75.2);
    EXPECT_EQ(seen->valueInterface()->maximumValue().toDouble(), 100);
    seen->valueInterface()->setCurrentValue(10);
    EXPECT_EQ(m_slider.range(), (TrimRange{20, 20.1}));
    EXPECT_EQ(seen->valueInterface()->currentValue().toDouble(), 20.1) << "as far as it may go";
}

TEST_F(TrimSliderTest, bothHandlesCanBeTakenWhereTheyCoverEachOther)
{
    for (const double place : {0.0, 99.9}) {
        for (const Handle handle : {Handle::start, Handle::end}) {
            m_slider.setRange({place, place + 0.1});
            const int x = static_cast<int>(9 + place * 5) + (handle == Handle::start ? -3 : 4);
            press(x);
            EXPECT_EQ(m_scrubs.last().first, handle) << place;
            release(x);
        }
    }
}

TEST(TrimGeometryTest, readsTimesFromPlacesAndKeepsTheGap)
{
    const struct {
        double width, duration, pointerX, seconds;
    } cases[] = {
        {518, 100, 259, 50}, // the middle of a track of 500
        {518, 100, -400, 0},       {518, 100, 259.3, 50.1}, // 50.06
        {518, 60.54, 509, 60.54}, // no tenth
        {518, 60.56, 9000, 60.56}, {518, 0.04, 400, 0},     {18, 100, 9, 0}, // a track of 1
        {3, 100, 10, 100},
    };
    for (const auto &[width, duration, pointerX, seconds] : cases)
        EXPECT_EQ((TrimGeometry{width, duration}.timeAt(pointerX)), seconds)
            << width << ' ' << pointerX;
    EXPECT_EQ(withStart({20, 20.05}, 20.1), (TrimRange{20.05 - 0.1, 20.05}));
    EXPECT_EQ(withStart({0, 0.05}, 0), (TrimRange{0, 0.05}));
    EXPECT_EQ(withEnd({20, 30}, 60.6, 60.54), (TrimRange{20, 60.54}));
}

} // namespace
} // namespace clipwren
