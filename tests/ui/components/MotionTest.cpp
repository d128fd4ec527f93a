#include "ui/components/AnimatedHeight.h"
#include "ui/components/Progress.h"
#include "ui/components/Theme.h"

#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace clipwren {
namespace {

/// Animations run, unless a test asks for reduced motion.
struct MotionTest : testing::Test {
    MotionTest() { Theme::current().forceReducedMotion(false); }
    ~MotionTest() override { Theme::current().forceReducedMotion(true); }
};

TEST_F(MotionTest, anAnimatedHeightMovesTheWidgetsBelowStepByStep)
{
    auto *part = new QWidget;
    part->setFixedHeight(200);
    part->hide();
    auto *content = new QWidget;
    auto *inside = new QVBoxLayout(content);
    inside->setContentsMargins(0, 0, 0, 0);
    inside->addWidget(part);
    auto *area = new AnimatedHeight(content);
    QWidget window;
    auto *column = new QVBoxLayout(&window);
    column->addWidget(area);
    column->addStretch(1);
    window.resize(200, 400);
    window.show();
    const auto height = [&] {
        for (int turn = 0; turn < 3; ++turn)
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        return area->height();
    };
    EXPECT_EQ(height(), 0);
    area->change(0.05, [&] { part->show(); });
    EXPECT_LT(area->heightForWidth(200), 200);
    EXPECT_TRUE(QTest::qWaitFor([&] { return height() == 200; }));
    Theme::current().forceReducedMotion(true);
    area->change(0.05, [&] { part->hide(); });
    EXPECT_EQ(height(), 0);
}

TEST_F(MotionTest, aSpinnerTurnsOnlyWhileSeenAndWithMotionAllowed)
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
}

} // namespace
} // namespace clipwren
