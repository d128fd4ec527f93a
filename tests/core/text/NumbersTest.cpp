#include "core/text/Numbers.h"

#include <QString>

#include <gtest/gtest.h>
#include <limits>

namespace clipwren {
namespace {

TEST(Numbers, readsOnlyWholeTexts)
{
    constexpr auto none = std::nullopt;
    const std::tuple<QStringView, std::optional<double>, std::optional<qint64>> cases[] = {
        {u"12", 12, 12},
        {u"-3", -3, -3},
        {u"+7", 7, 7},
        {u"42.3", 42.3, none},
        {u"1e3", 1000, none},
        {u"9223372036854775807", 9223372036854775807.0, std::numeric_limits<qint64>::max()},
        {u"9223372036854775808", 9223372036854775808.0, none},
    };
    for (const auto &[text, number, integer] : cases) {
        EXPECT_EQ(readNumber(text), number) << text.toString().toStdString();
        EXPECT_EQ(readInteger(text), integer) << text.toString().toStdString();
    }
    // The last is an Arabic digit.
    for (const QStringView text : {u"", u"+", u"+-1", u"--1", u"N/A", u" 1", u"1 ", u"1\n", u"1,5",
                                   u"0x10", u"inf", u"nan", u"1e999", u"\u0661"}) {
        EXPECT_EQ(readNumber(text), none) << text.toString().toStdString();
        EXPECT_EQ(readInteger(text), none) << text.toString().toStdString();
    }
}

} // namespace
} // namespace clipwren
