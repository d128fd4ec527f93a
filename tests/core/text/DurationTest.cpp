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

TEST(Duration, isWrittenWithTenths)
{
    const std::pair<double, QStringView> cases[] = {
        {0, u"0:00.0"},
        {65.3, u"1:05.3"},
        {12.349, u"0:12.3"},
        {59.94, u"0:59.9"},
        {59.96, u"1:00.0"},
        {3599.95, u"1:00:00.0"},
        {60.54, u"1:00.5"},
        {3725.25, u"1:02:05.3"},
        {-0.1, u"—"},
        {1e300, u"—"},
        {std::numeric_limits<double>::quiet_NaN(), u"—"},
    };
    for (const auto &[seconds, text] : cases)
        EXPECT_EQ(formatDurationTenths(seconds), text) << seconds;
}

TEST(Duration, isReadAsSecondsOrAsMinutesAndHours)
{
    const std::pair<QStringView, double> cases[] = {
        {u"12.5", 12.5}, {u"0", 0.0}, {u"1:05", 65.0}, {u"90:00", 5400.0}, {u"1:02:05.5", 3725.5}};
    for (const auto &[text, seconds] : cases)
        EXPECT_EQ(parseTime(text), seconds) << text.toString().toStdString();
    for (const QStringView text :
         {u"", u"1:60", u"1:60:00", u"-1", u"1,5", u"1e3", u" 1", u"1:2:3:4", u"12.", u":30"})
        EXPECT_EQ(parseTime(text), std::nullopt) << text.toString().toStdString();
}

} // namespace
} // namespace clipwren
