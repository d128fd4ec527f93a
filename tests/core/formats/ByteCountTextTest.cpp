#include "core/formats/ByteCountText.h"

#include <gtest/gtest.h>
#include <limits>

namespace clipwren {
namespace {

constexpr ByteUnits estimate{ByteUnit::MB, ByteUnit::GB};
constexpr ByteUnits fileSize{ByteUnit::KB, ByteUnit::TB};

TEST(ByteCountText, picksUnitAndDigits)
{
    struct Case {
        qint64 bytes;
        ByteUnits units;
        const char *text;
    };
    const Case cases[] = {
        {412'500'000, estimate, "412.5 MB"},
        {1'677'500'000, estimate, "1.68 GB"},
        {999'940'000, estimate, "999.9 MB"},
        {999'960'000, estimate, "1 GB"},
        {1'500'000'000, estimate, "1.5 GB"},
        {50'000'000, estimate, "50 MB"},
        {1'005'000'000, estimate, "1.01 GB"},
        {9'000, estimate, "0 MB"},
        {6'750'000'000'000, estimate, "6750 GB"},
        {0, fileSize, "0 KB"},
        {999'499, fileSize, "999 KB"},
        {999'500, fileSize, "1 MB"},
        {12'345'678, fileSize, "12.3 MB"},
        {999'996'000'000, fileSize, "1 TB"},
        {1'250'000'000'000, fileSize, "1.25 TB"},
        {std::numeric_limits<qint64>::max(), fileSize, "9223372.04 TB"},
    };
    for (const Case &c : cases)
        EXPECT_EQ(byteCountText(c.bytes, c.units, QLocale::c()).toStdString(), c.text) << c.bytes;
}

TEST(ByteCountText, usesTheDecimalSeparatorOfTheLocaleAndNoGrouping)
{
    const QLocale german(QLocale::German);
    EXPECT_EQ(byteCountText(1'677'500'000, estimate, german), u"1,68 GB");
    EXPECT_EQ(byteCountText(6'750'500'000'000, estimate, german), u"6750,5 GB");
}

} // namespace
} // namespace clipwren
