#include "core/text/Duration.h"

#include <gtest/gtest.h>
#include <limits>

namespace clipwren {
namespace {

TEST(Duration, isWrittenInMinutesOrHours)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const std::pair<double, QStringView> cases[] = {
        {0, u"0:00"},       {-0.0, u"0:00"},    {5, u"0:05"},
        {0.49, u"0:00"},    {0.5, u"0:01"},     {59.5, u"1:00"},
        {754, u"12:34"},    {3599.4, u"59:59"}, {3599.5, u"1:00:00"},
        {3600, u"1:00:00"}, {3723, u"1:02:03"}, {360'000, u"100:00:00"},
        {-0.1, u"—"},       {-1, u"—"},         {1e300, u"—"},
        {infinity, u"—"},   {-infinity, u"—"},  {std::numeric_limits<double>::quiet_NaN(), u"—"},
    };
    for (const auto &[seconds, text] : cases)
        EXPECT_EQ(formatDuration(seconds), text) << seconds;
}

} // namespace
} // namespace clipwren
