#include "core/formats/ByteCountText.h"

#include <gtest/gtest.h>
#include <limits>

namespace clipwren {
namespace {

TEST(ByteCountText, picksUnitAndDigitsInTheFormOfTheLocale)
{
    constexpr ByteUnits estimate{ByteUnit::MB, ByteUnit::GB};
    constexpr ByteUnits fileSize{ByteUnit::KB, ByteUnit::TB};
    const QLocale c = QLocale::c();
    const QLocale german(QLocale::German);
    const std::tuple<qint64, ByteUnits, QLocale, const char *> cases[] = {
        {412'500'000, estimate, c, "412.5 MB"},
        {1'677'500'000, estimate, c, "1.68 GB"},
        {999'940'000, estimate, c, "999.9 MB"},
        {999'960'000, estimate, c, "1 GB"},
        {50'000'000, estimate, c, "50 MB"},
        {1'005'000'000, estimate, c, "1.01 GB"},
        {9'000, estimate, c, "0 MB"},
        {0, fileSize, c, "0 KB"},
        {999'499, fileSize, c, "999 KB"},
        {999'500, fileSize, c, "1 MB"},
        {999'996'000'000, fileSize, c, "1 TB"},
        {1'250'000'000'000, fileSize, c, "1.25 TB"},
        {std::numeric_limits<qint64>::max(), fileSize, c, "9223372.04 TB"},
        {1'677'500'000, estimate, german, "1,68 GB"},
        {6'750'500'000'000, estimate, german, "6750,5 GB"},
    };
    for (const auto &[bytes, units, locale, text] : cases)
        EXPECT_EQ(byteCountText(bytes, units, locale).toStdString(), text) << bytes;
}

} // namespace
} // namespace clipwren
