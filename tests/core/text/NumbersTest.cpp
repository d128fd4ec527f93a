#include "core/text/Numbers.h"

#include <QString>

#include <gtest/gtest.h>
#include <limits>

namespace clipwren {
namespace {

TEST(Numbers, readsOnlyWholeTexts)
{
    constexpr auto none = std::nullopt;
    struct Case {
        QStringView text;
        std::optional<double> number;
        std::optional<qint64> integer;
    };
    const Case cases[] = {
        {u"12", 12, 12},
        {u"-3", -3, -3},
        {u"+7", 7, 7},
        {u"42.3", 42.3, none},
        {u"1e3", 1000, none},
        {u"9223372036854775807", 9223372036854775807.0, std::numeric_limits<qint64>::max()},
        {u"9223372036854775808", 9223372036854775808.0, none},
        {u"", none, none},
        {u"+", none, none},
        {u"+-1", none, none},
        {u"--1", none, none},
        {u"N/A", none, none},
        {u" 1", none, none},
        {u"1 ", none, none},
        {u"1\n", none, none},
        {u"1,5", none, none},
        {u"0x10", none, none},
        {u"inf", none, none},
        {u"nan", none, none},
        {u"1e999", none, none},
        {u"\u0661", none, none}, // an Arabic digit
    };
    for (const Case &c : cases) {
        EXPECT_EQ(readNumber(c.text), c.number) << c.text.toString().toStdString();
        EXPECT_EQ(readInteger(c.text), c.integer) << c.text.toString().toStdString();
    }
}

} // namespace
} // namespace clipwren
