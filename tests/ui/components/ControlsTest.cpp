#include "ui/components/Banner.h"
#include "ui/components/Button.h"
#include "ui/components/FieldBox.h"
#include "ui/components/LinearProgress.h"
#include "ui/components/Picker.h"
#include "ui/components/Pill.h"
#include "ui/components/SegmentedControl.h"
#include "ui/components/Spinner.h"
#include "ui/components/Switch.h"
#include "ui/shell/LogViewer.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QFocusFrame>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSet>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <gtest/gtest.h>
#include <limits>
#include <memory>

using namespace clipwren;

namespace {

/// A shown, active window with the controls below each other.
class Stage : public QWidget {
public:
    explicit Stage(std::initializer_list<QWidget *> controls)
    {
        auto *column = new QVBoxLayout(this);
        for (QWidget *control : controls)
            column->addWidget(control);
        show();
        activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(this));
    }
};

/// Sees which of some widgets are painted from now on.
class PaintCounter : public QObject {
public:
    explicit PaintCounter(const QList<QWidget *> &widgets)
    {
        for (QWidget *widget : widgets) {
            if (!widget->isVisible() || widget->size().isEmpty())
                continue;
            m_waiting.insert(widget);
            widget->installEventFilter(this);
        }
    }

    bool allPainted() const { return m_waiting.isEmpty(); }
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            m_waiting.remove(watched);
        return false;
    }

private:
    QSet<QObject *> m_waiting;
};

bool ringShows(const QWidget &window)
{
    for (const auto *frame : window.findChildren<QFocusFrame *>()) {
        if (frame->isVisible())
            return true;
    }
    return false;
}

Picker *makePicker()
{
    auto *picker = new Picker;
    picker->setEntries({{u"sparkles", QStringLiteral("Best"), QStringLiteral("best")},
                        {u"video.fill", QStringLiteral("Mac"), QStringLiteral("mac")}});
    picker->setCurrentKey(QStringLiteral("best"));
    return picker;
}

} // namespace

TEST(ControlsTest, assistiveToolsHearNameAndRole)
{
    struct Case {
        std::unique_ptr<QWidget> widget;
        QAccessible::Role role;
        QString name;
    };
    auto pill = std::make_unique<Pill>();
    pill->display(Pill::Tone::Blue, u"checkmark.circle.fill", QStringLiteral("macOS 10.13+"));
    Case cases[] = {
        {std::make_unique<Button>(Button::Style::Prominent, QStringLiteral("Continue")),
         QAccessible::Button, QStringLiteral("Continue")},
        {std::unique_ptr<QWidget>(Button::iconOnly(u"folder", QStringLiteral("Reveal"))),
         QAccessible::Button, QStringLiteral("Reveal")},
        {std::make_unique<Switch>(QStringLiteral("Trim before saving"), Icon(u"scissors")),
         QAccessible::CheckBox, QStringLiteral("Trim before saving")},
        {std::unique_ptr<QWidget>(makePicker()), QAccessible::ComboBox, QStringLiteral("Best")},
        {std::make_unique<LinearProgress>(), QAccessible::ProgressBar, QStringLiteral("Progress")},
        {std::move(pill), QAccessible::StaticText, QStringLiteral("macOS 10.13+")},
        {std::make_unique<Spinner>(), QAccessible::ProgressBar, QStringLiteral("In progress")},
    };
    for (const Case &each : cases) {
        const auto *seen = QAccessible::queryAccessibleInterface(each.widget.get());
        ASSERT_TRUE(seen);
        EXPECT_EQ(seen->role(), each.role) << each.name.toStdString();
        EXPECT_EQ(seen->text(QAccessible::Name), each.name);
    }
    const FieldBox field(u"link", QStringLiteral("Video address"));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(field.lineEdit())->text(QAccessible::Name),
              QStringLiteral("Video address"));
    SegmentedControl segments({QStringLiteral("Recent"), QStringLiteral("History")});
    const auto *first =
        QAccessible::queryAccessibleInterface(segments.findChild<QAbstractButton *>());
    EXPECT_EQ(first->role(), QAccessible::RadioButton);
    EXPECT_TRUE(first->state().checked);
}

TEST(ControlsTest, aNewSchemeRepaintsEveryControl)
{
    Theme::current().forceScheme(Theme::Scheme::Light);
    auto *banner = new Banner;
    banner->setMessage(QStringLiteral("Process failed"));
    Stage stage({new Button(Button::Style::Bordered, QStringLiteral("Cancel")),
                 new SegmentedControl({QStringLiteral("Recent"), QStringLiteral("History")}),
                 new Switch(QStringLiteral("Trim")), new LinearProgress, makePicker(), banner,
                 new FieldBox(u"link", QStringLiteral("Address"))});
    const auto old = stage.findChildren<QWidget *>();
    PaintCounter counter(old);
    Theme::current().forceScheme(Theme::Scheme::Dark);
    EXPECT_TRUE(QTest::qWaitFor([&] { return counter.allPainted(); }));
    Theme::current().forceScheme(std::nullopt);
}

TEST(ButtonTest, spaceAndReturnPressItUnlessDisabled)
{
    auto *button = new Button(Button::Style::Bordered, QStringLiteral("Cancel"));
    Stage stage({button});
    QSignalSpy clicked(button, &Button::clicked);
    button->setFocus(Qt::TabFocusReason);
    QTest::keyClick(&stage, Qt::Key_Tab);
    QTest::keyClick(button, Qt::Key_Space);
    QTest::keyClick(button, Qt::Key_Return);
    EXPECT_EQ(clicked.size(), 2);
    button->setEnabled(false);
    QTest::keyClick(button, Qt::Key_Space);
    QTest::keyClick(button, Qt::Key_Return);
    EXPECT_EQ(clicked.size(), 2);
}

TEST(FocusRingTest, showsForTheKeyboardAndNotForThePointer)
{
    auto *first = new Button(Button::Style::Bordered, QStringLiteral("First"));
    auto *second = new Button(Button::Style::Bordered, QStringLiteral("Second"));
    Stage stage({first, second});
    QTest::mouseClick(first, Qt::LeftButton);
    EXPECT_TRUE(first->hasFocus());
    EXPECT_FALSE(ringShows(stage));
    QTest::keyClick(first, Qt::Key_Tab);
    EXPECT_TRUE(second->hasFocus());
    EXPECT_TRUE(ringShows(stage));
    QTest::mouseClick(first, Qt::LeftButton);
    EXPECT_FALSE(ringShows(stage));
}

TEST(FocusRingTest, goesWithItsControl)
{
    auto *button = new Button(Button::Style::Bordered, QStringLiteral("Second"));
    Stage stage({new Button(Button::Style::Bordered, QStringLiteral("First")), button});
    button->setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(ringShows(stage));
    delete button;
    EXPECT_FALSE(ringShows(stage));
}

TEST(SegmentedControlTest, arrowsChooseAndTabPassesTheWholeControl)
{
    auto *segments = new SegmentedControl({QStringLiteral("Recent"), QStringLiteral("History")});
    auto *after = new Button(Button::Style::Bordered, QStringLiteral("After"));
    Stage stage({segments, after});
    QSignalSpy chosen(segments, &SegmentedControl::chosen);
    auto *recent = segments->findChild<QAbstractButton *>();
    recent->setFocus(Qt::TabFocusReason);
    QTest::keyClick(recent, Qt::Key_Right);
    EXPECT_EQ(segments->currentIndex(), 1);
    ASSERT_EQ(chosen.size(), 1);
    EXPECT_EQ(chosen.at(0).at(0).toInt(), 1);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(after->hasFocus());

    segments->setCurrentIndex(0);
    EXPECT_EQ(segments->currentIndex(), 0);
    EXPECT_EQ(chosen.size(), 1) << "only the user's choice is told";
}

TEST(SwitchTest, spaceAndAClickOnItsTextTurnIt)
{
    auto *trim = new Switch(QStringLiteral("Trim before saving"), u"scissors");
    Stage stage({trim});
    QTest::keyClick(trim, Qt::Key_Space);
    EXPECT_TRUE(trim->isChecked());
    QTest::mouseClick(trim, Qt::LeftButton, {}, {trim->width() - 4, trim->height() / 2});
    EXPECT_FALSE(trim->isChecked());
}

TEST(PickerTest, tellsOnlyTheUsersChoice)
{
    Picker *picker = makePicker();
    Stage stage({picker});
    QSignalSpy picked(picker, &Picker::picked);
    picker->setCurrentKey(QStringLiteral("mac"));
    picker->setCurrentKey(QStringLiteral("best"));
    EXPECT_EQ(picked.size(), 0);
    QTest::keyClick(picker, Qt::Key_Down);
    ASSERT_EQ(picked.size(), 1);
    EXPECT_EQ(picked.at(0).at(0).toString(), QStringLiteral("mac"));
}

TEST(PickerTest, scrollingOverItChangesNothing)
{
    Picker *picker = makePicker();
    Stage stage({picker});
    picker->setFocus();
    QWheelEvent wheel({10, 10}, picker->mapToGlobal(QPointF(10, 10)), {}, {0, -120}, {}, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(picker, &wheel);
    EXPECT_EQ(picker->currentKey(), QStringLiteral("best"));
}

TEST(PickerTest, newEntriesKeepTheChoiceOrLeaveNone)
{
    const std::unique_ptr<Picker> picker(makePicker());
    picker->setCurrentKey(QStringLiteral("mac"));
    picker->setEntries({{u"music.note", QStringLiteral("Audio"), QStringLiteral("audio")},
                        {u"video.fill", QStringLiteral("Mac"), QStringLiteral("mac")}});
    EXPECT_EQ(picker->currentKey(), QStringLiteral("mac"));
    picker->setEntries({{u"music.note", QStringLiteral("Audio"), QStringLiteral("audio")}});
    EXPECT_EQ(picker->currentKey(), QString());
}

TEST(SpinnerTest, turnsOnlyWhileSeenAndWithMotionAllowed)
{
    Spinner spinner;
    EXPECT_FALSE(spinner.isTurning());
    spinner.show();
    EXPECT_TRUE(spinner.isTurning());
    spinner.hide();
    EXPECT_FALSE(spinner.isTurning());
    Theme::current().forceReducedMotion(true);
    spinner.show();
    EXPECT_FALSE(spinner.isTurning());
    Theme::current().forceReducedMotion(std::nullopt);
}

TEST(LinearProgressTest, staysInItsRangeWhateverItIsGiven)
{
    LinearProgress bar;
    const QList<QPair<double, int>> cases = {
        {0.42, 420}, {-1, 0}, {7, 1000}, {std::numeric_limits<double>::quiet_NaN(), 0}};
    for (const auto &[fraction, value] : cases) {
        bar.setFraction(fraction);
        EXPECT_EQ(bar.value(), value);
    }
}

TEST(LogViewerTest, copiesTheRawLogAlsoWhenThereIsNone)
{
    auto *clipboard = QGuiApplication::clipboard();
    for (const QString &log : {QStringLiteral("line\n"), QString()}) {
        clipboard->setText(QStringLiteral("before"));
        LogViewer viewer(QStringLiteral("yt-dlp output"), log, [] {});
        for (auto *button : viewer.findChildren<Button *>()) {
            if (button->text() == QStringLiteral("Copy"))
                button->click();
        }
        EXPECT_EQ(clipboard->text(), log);
        EXPECT_EQ(viewer.findChild<QPlainTextEdit *>()->toPlainText(),
                  log.isEmpty() ? QStringLiteral("(no output captured)") : log);
    }
}

TEST(LogViewerTest, escapeAndDoneDismiss)
{
    int dismissed = 0;
    auto *viewer = new LogViewer(QStringLiteral("yt-dlp output"), {}, [&] { ++dismissed; });
    Stage stage({viewer});
    viewer->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(dismissed, 1);
    viewer->findChildren<Button *>().constLast()->click();
    EXPECT_EQ(dismissed, 2);
    EXPECT_TRUE(viewer->isVisible());
}
