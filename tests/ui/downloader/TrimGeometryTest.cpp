#include "ui/downloader/TrimGeometry.h"

#include <gtest/gtest.h>

namespace clipwren {
namespace {

TEST(TrimGeometry, readsTimesFromPlaces)
{
    struct Case {
        double width;
        double duration;
        double pointerX;
        double seconds;
    };
    const Case cases[] = {
        {518, 100, 259, 50}, // the middle of a track of 500
        {518, 100, 9, 0},          {518, 100, -400, 0}, {518, 100, 9000, 100},
        {518, 100, 259.3, 50.1}, // 50.06
        {518, 60.54, 509, 60.54}, // no tenth
        {518, 60.56, 9000, 60.56}, {518, 0.04, 400, 0}, {18, 100, 9, 0}, // no room: a track of 1
        {3, 100, 10, 100},
    };
    for (const Case &c : cases) {
        EXPECT_EQ((TrimGeometry{c.width, c.duration}.timeAt(c.pointerX)), c.seconds)
            << c.width << ' ' << c.duration << ' ' << c.pointerX;
    }
}

TEST(TrimGeometry, placesHandlesOnTheTrack)
{
    EXPECT_EQ((TrimGeometry{518, 100}.handleX(25)), 125);
    EXPECT_EQ((TrimGeometry{518, 100}.handleX(100)), 500);
    EXPECT_EQ((TrimGeometry{0, 100}.handleX(100)), 1);
}

TEST(TrimGeometry, keepsHandlesApart)
{
    const TrimRange range{20, 30};
    struct Case {
        TrimRange moved;
        TrimRange expected;
    };
    const Case cases[] = {
        {withStart(range, 25), {25, 30}},
        {withStart(range, 31), {29.9, 30}},
        {withStart(range, -1), {0, 30}},
        {withEnd(range, 40, 60.54), {20, 40}},
        {withEnd(range, 60.6, 60.54), {20, 60.54}},
        {withEnd(range, 0, 60.54), {20, 20.1}},
        // Set by the program, closer than a hand can: the next move brings the gap.
        {withStart({20, 20.05}, 20.1), {20.05 - 0.1, 20.05}},
        {withStart({0, 0.05}, 0), {0, 0.05}},
    };
    for (const Case &c : cases)
        EXPECT_EQ(c.moved, c.expected) << c.moved.start << ' ' << c.moved.end;
}

} // namespace
} // namespace clipwren
