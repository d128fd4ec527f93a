#include "core/text/DecisiveLine.h"
#include "core/text/Duration.h"
#include "core/text/Numbers.h"
#include "support/Printing.h"

#include <gtest/gtest.h>
#include <limits>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

TEST(DecisiveLine, tellsWhyAToolFailed)
{
    const std::pair<QString, QString> cases[] = {
        {{}, {}},
        {u"\n \n"_s, {}},
        {u"one\n two \n"_s, u"two"_s},
        {u"[debug] a\nERROR: one\nERROR: gone\n  File \"x\", line 1"_s, u"ERROR: gone"_s},
        {u"Traceback:\n  File \"x.py\", line 1\nKeyError: 'x'\n"_s, u"KeyError: 'x'"_s},
        // Under the cause, ffmpeg writes what it could not do either, and the encoder's statistics.
        {u"[libx264 @ 0x1] height not divisible by 2 (853x479)\n"
         "Error initializing output stream 0:0\n[aac @ 0x2] Qavg: 120\nConversion failed!\n"_s,
         u"Error initializing output stream 0:0"_s},
        {u"av_interleaved_write_frame(): No space left on device\n"
         "Error closing file o.mp4: No space left on device\n"
         "Error while filtering\n[libx264 @ 0x1] frame I:2     Avg QP:13.36\n"
         "[libx264 @ 0x1] kb/s:98.68\nConversion failed!"_s,
         u"Error closing file o.mp4: No space left on device"_s},
        {u"o.mov: Permission denied\n"_s, u"o.mov: Permission denied"_s},
        {u"Press [q] to stop\nConversion failed!\n"_s, u"Press [q] to stop"_s},
        {u"ERROR: Postprocessing: Conversion failed!\n"_s,
         u"ERROR: Postprocessing: Conversion failed!"_s},
        {u"ERROR: "_s + u"x"_s.repeated(5000), u"ERROR: "_s + u"x"_s.repeated(993)},
    };
    for (const auto &[log, line] : cases)
        EXPECT_EQ(decisiveLine(log), line);
}

TEST(Duration, isWrittenInMinutesOrHours)
{
    const std::pair<double, QStringView> cases[] = {
        {0, u"0:00"},         {-0.0, u"0:00"},    {5, u"0:05"},       {0.49, u"0:00"},
        {0.5, u"0:01"},       {59.5, u"1:00"},    {754, u"12:34"},    {3599.4, u"59:59"},
        {3599.5, u"1:00:00"}, {3600, u"1:00:00"}, {3723, u"1:02:03"}, {360'000, u"100:00:00"},
        {-0.1, u"—"},         {-1, u"—"},         {1e300, u"—"},      {infinity, u"—"},
        {-infinity, u"—"},    {notANumber, u"—"},
    };
    for (const auto &[seconds, text] : cases)
        EXPECT_EQ(formatDuration(seconds), text) << seconds;
}

TEST(Duration, isWrittenWithTenths)
{
    const std::pair<double, QStringView> cases[] = {
        {0, u"0:00.0"},     {65.3, u"1:05.3"},       {12.349, u"0:12.3"}, {59.94, u"0:59.9"},
        {59.96, u"1:00.0"}, {3599.95, u"1:00:00.0"}, {60.54, u"1:00.5"},  {3725.25, u"1:02:05.3"},
        {-0.1, u"—"},       {1e300, u"—"},           {notANumber, u"—"},
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
