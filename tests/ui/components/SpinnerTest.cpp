#include "ui/components/Progress.h"
#include "ui/components/Theme.h"

#include <gtest/gtest.h>

namespace clipwren {
namespace {

/// Animations run, unless a test asks for reduced motion.
struct SpinnerTest : testing::Test {
    SpinnerTest() { Theme::current().forceReducedMotion(false); }
    ~SpinnerTest() override { Theme::current().forceReducedMotion(true); }
};

TEST_F(SpinnerTest, aSpinnerTurnsOnlyWhileSeenAndWithMotionAllowed)
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
