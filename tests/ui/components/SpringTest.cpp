#include "ui/components/SpringAnimation.h"
#include "ui/components/Theme.h"

#include <QTest>

#include <gtest/gtest.h>

using namespace clipwren;

TEST(SpringTest, restsAtItsEndAfterTheSettlingTime)
{
    for (const Spring spring : {Spring{0.15, 1}, Spring{0.18, 1}, Spring{0.5, 1}, Spring{0.5, 0.4},
                                Spring{0.3, 0.825}, Spring{0.5, 2}}) {
        const double settled = spring.settlingTime();
        EXPECT_EQ(spring.position(0), 0);
        EXPECT_NEAR(spring.position(settled), 1, 0.001);
        EXPECT_NEAR(spring.position(settled * 1.37), 1, 0.001);
        EXPECT_GT(std::abs(1 - spring.position(settled - spring.response / 50)), 0.0005);
        EXPECT_LT(settled, spring.response * 10);
    }
}

TEST(SpringTest, onlyAWeaklyDampedOneSwingsPastItsEnd)
{
    const auto highest = [](Spring spring) {
        double top = 0;
        for (double seconds = 0; seconds < 2; seconds += 0.001)
            top = std::max(top, spring.position(seconds));
        return top;
    };
    EXPECT_LE(highest({0.3, 1}), 1);
    EXPECT_LE(highest({0.3, 1.5}), 1);
    // exp(-pi * 0.5 / sqrt(1 - 0.25)), the overshoot of a damping of one half.
    EXPECT_NEAR(highest({0.3, 0.5}), 1.163, 0.001);
}

TEST(SpringAnimationTest, startsFromWhereItIsAndEndsExactlyAtItsTarget)
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
}

TEST(SpringAnimationTest, jumpsUnderReducedMotion)
{
    Theme::current().forceReducedMotion(true);
    SpringAnimation animation({0.5, 1}, 0, [](double) {});
    animation.moveTo(3);
    EXPECT_EQ(animation.position(), 3);
    EXPECT_EQ(animation.state(), SpringAnimation::Stopped);
    Theme::current().forceReducedMotion(std::nullopt);
}
