#include "support/Printing.h"
#include "support/Widgets.h"
#include "ui/components/Button.h"
#include "ui/components/Picker.h"
#include "ui/components/Progress.h"
#include "ui/components/ScrollPane.h"
#include "ui/components/Switch.h"

#include <QAccessible>
#include <QApplication>
#include <QFocusFrame>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>

namespace clipwren::test {
namespace {

using namespace Qt::StringLiterals;

/// A shown, active window with the controls below each other.
class Stage : public QWidget {
public:
    explicit Stage(std::initializer_list<QWidget *> controls)
    {
        auto *column = new QVBoxLayout(this);
        for (QWidget *control : controls)
            column->addWidget(control);
        showWindow(*this);
    }

    bool showsFocusRing() const
    {
        return std::ranges::any_of(findChildren<QFocusFrame *>(), &QWidget::isVisible);
    }
};

Button *makeButton(const QString &text)
{
    return new Button(Button::Style::Bordered, text);
}

Picker *makePicker()
{
    auto *picker = new Picker;
    picker->setEntries({{u"sparkles", u"Best"_s, u"best"_s}, {u"video.fill", u"Mac"_s, u"mac"_s}});
    picker->setCurrentKey(u"best"_s);
    return picker;
}

TEST(ControlsTest, assistiveToolsHearNameAndRole)
{
    SegmentedControl segments({u"Recent"_s, u"History"_s});
    Switch trim(u"Trim"_s, u"scissors");
    LinearProgress progress;
    Spinner spinner;
    const std::tuple<QWidget *, QAccessible::Role, QString> cases[] = {
        {segments.findChild<QAbstractButton *>(), QAccessible::RadioButton, u"Recent"_s},
        {&trim, QAccessible::CheckBox, u"Trim"_s},
        {&progress, QAccessible::ProgressBar, u"Progress"_s},
        {&spinner, QAccessible::ProgressBar, u"In progress"_s}};
    for (const auto &[widget, role, name] : cases) {
        EXPECT_EQ(nameOf(*widget), name);
        EXPECT_EQ(QAccessible::queryAccessibleInterface(widget)->role(), role);
    }
}

TEST(ControlsTest, keysWorkThem)
{
    auto *segments = new SegmentedControl({u"Recent"_s, u"History"_s});
    auto *trim = new Switch(u"Trim before saving"_s, u"scissors");
    Stage stage({segments, trim});
    QSignalSpy chosen(segments, &SegmentedControl::chosen);
    auto *recent = segments->findChild<QAbstractButton *>();
    recent->setFocus(Qt::TabFocusReason);
    QTest::keyClick(recent, Qt::Key_Right);
    EXPECT_EQ(segments->currentIndex(), 1);
    EXPECT_EQ(chosen, QList<QVariantList>{{1}});
    segments->setCurrentIndex(0);
    EXPECT_EQ(chosen.size(), 1) << "only the user's choice is told";

    // One Tab passes the whole control.
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(trim->hasFocus());
    QTest::keyClick(trim, Qt::Key_Space);
    EXPECT_TRUE(trim->isChecked());
    QTest::mouseClick(trim, Qt::LeftButton, {}, {trim->width() - 4, trim->height() / 2});
    EXPECT_FALSE(trim->isChecked()) << "its text can be clicked too";
}

TEST(FocusRingTest, showsForTheKeyboardAndGoesWithItsControl)
{
    auto *first = makeButton(u"First"_s);
    auto *second = makeButton(u"Second"_s);
    Stage stage({first, second});
    QTest::mouseClick(first, Qt::LeftButton);
    EXPECT_TRUE(first->hasFocus());
    EXPECT_FALSE(stage.showsFocusRing());
    QTest::keyClick(first, Qt::Key_Tab);
    EXPECT_TRUE(second->hasFocus());
    EXPECT_TRUE(stage.showsFocusRing());
    QTest::mouseClick(first, Qt::LeftButton);
    EXPECT_FALSE(stage.showsFocusRing());
    second->setFocus();
    EXPECT_FALSE(stage.showsFocusRing()) << "as a click led there";
    QTest::keyClick(second, Qt::Key_Shift);
    first->setFocus();
    EXPECT_TRUE(stage.showsFocusRing()) << "as a key led there";
    second->setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(stage.showsFocusRing());
    delete second;
    EXPECT_FALSE(stage.showsFocusRing());
}

TEST(PickerTest, keepsItsChoiceUnlessTheUserChoosesOrItIsGone)
{
    Picker *picker = makePicker();
    Stage stage({picker});
    QSignalSpy picked(picker, &Picker::picked);
    picker->setFocus();
    // Scrolling the page must not choose.
    QWheelEvent wheel({10, 10}, picker->mapToGlobal(QPointF(10, 10)), {}, {0, -120}, {}, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(picker, &wheel);
    EXPECT_EQ(picker->currentKey(), u"best");
    picker->setCurrentKey(u"mac"_s);
    const Picker::Entry audio{u"music.note", u"Audio"_s, u"audio"_s};
    picker->setEntries({audio, {u"video.fill", u"Mac"_s, u"mac"_s}});
    EXPECT_EQ(picker->currentKey(), u"mac");
    picker->setEntries({audio});
    EXPECT_EQ(picker->currentKey(), QString());
    EXPECT_EQ(picked.size(), 0);
}

TEST(LinearProgressTest, staysInItsRangeWhateverItIsGiven)
{
    LinearProgress bar;
    const std::pair<double, int> cases[] = {
        {0.42, 420}, {-1, 0}, {7, 1000}, {std::numeric_limits<double>::quiet_NaN(), 0}};
    for (const auto &[fraction, value] : cases) {
        bar.setFraction(fraction);
        EXPECT_EQ(bar.value(), value);
    }
}

TEST(ScrollPane, answersAnAssistiveToolThatAsksForAScrollBarWhichHasGone)
{
    ScrollPane pane(new QWidget, 100);
    const QAccessibleInterface *seen = QAccessible::queryAccessibleInterface(&pane);
    EXPECT_NE(seen->child(0), nullptr);
    EXPECT_EQ(seen->child(seen->childCount()), nullptr);
}

} // namespace
} // namespace clipwren::test
