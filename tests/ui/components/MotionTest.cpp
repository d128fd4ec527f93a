#include "ui/components/Glide.h"
#include "ui/components/RenderJoiner.h"
#include "ui/components/Spinner.h"
#include "ui/components/SpringAnimation.h"
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

TEST_F(MotionTest, anAnimationStartsFromWhereItIsAndEndsExactlyAtItsTarget)
{
    double last = 0;
    SpringAnimation animation({0.05, 1}, 0, [&](double position) { last = position; });
    animation.moveTo(10);
    animation.setCurrentTime(animation.duration() / 4);
    const double halfway = last;
    EXPECT_GT(halfway, 0);
    EXPECT_LT(halfway, 10);
    animation.moveTo(5);
    EXPECT_NEAR(animation.position(), halfway, 1e-9);
    EXPECT_TRUE(QTest::qWaitFor([&] { return animation.state() == SpringAnimation::Stopped; }));
    EXPECT_EQ(last, 5);
    Theme::current().forceReducedMotion(true);
    animation.moveTo(3);
    EXPECT_EQ(last, 3);
    EXPECT_EQ(animation.state(), SpringAnimation::Stopped);
}

TEST_F(MotionTest, aGlideMovesWhatStandsBelowStepByStep)
{
    auto *part = new QWidget;
    part->setFixedHeight(200);
    part->hide();
    auto *content = new QWidget;
    auto *inside = new QVBoxLayout(content);
    inside->setContentsMargins(0, 0, 0, 0);
    inside->addWidget(part);
    auto *glide = new Glide(content);
    QWidget window;
    auto *column = new QVBoxLayout(&window);
    column->addWidget(glide);
    column->addStretch(1);
    window.resize(200, 400);
    window.show();
    const auto height = [&] {
        for (int turn = 0; turn < 3; ++turn)
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        return glide->height();
    };
    EXPECT_EQ(height(), 0);
    glide->change(Spring{0.05, 1}, [&] { part->show(); });
    EXPECT_LT(glide->heightForWidth(200), 200);
    EXPECT_TRUE(QTest::qWaitFor([&] { return height() == 200; }));
    Theme::current().forceReducedMotion(true);
    glide->change(Spring{0.05, 1}, [&] { part->hide(); });
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

TEST(RenderJoinerTest, joinsTheChangesOfATurn)
{
    QWidget view;
    int renders = 0;
    RenderJoiner joiner(&view, [&] { ++renders; });
    joiner.request();
    EXPECT_EQ(renders, 1) << "at once before anybody sees it";
    view.show();
    for (const int expected : {2, 3}) {
        for (int change = 0; change < 5; ++change)
            joiner.request();
        EXPECT_EQ(renders, expected - 1);
        QCoreApplication::processEvents();
        EXPECT_EQ(renders, expected);
    }
}

} // namespace
} // namespace clipwren
