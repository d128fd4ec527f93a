#include "platform/text/DateTimeText.h"
#include "platform/text/RelativeDate.h"
#include "support/Printing.h"

#include <ctime>
#include <gtest/gtest.h>
#include <utility>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

const QLocale english(u"en_US"_s);
const QLocale german(u"de_DE"_s);

QDateTime at(const QString &localTime)
{
    return QDateTime::fromString(localTime, u"yyyy-MM-dd HH:mm:ss"_s);
}

TEST(RelativeDate, takesTheLargestUnitAndItsName)
{
    const QDateTime now = at(u"2026-11-22 14:05:00"_s);
    const RelativeDate dates(english);
    const std::pair<const char *, const char *> rows[] = {
        {"2026-11-22 14:04:01", "now"},           {"2026-11-22 14:05:20", "now"},
        {"2026-11-22 14:04:00", "1 minute ago"},  {"2026-11-22 13:05:01", "59 minutes ago"},
        {"2026-11-22 12:05:00", "2 hours ago"},   {"2026-11-21 23:05:00", "15 hours ago"},
        {"2026-11-21 14:05:00", "yesterday"},     {"2026-11-21 00:00:00", "yesterday"},
        {"2026-11-20 23:59:59", "2 days ago"},    {"2026-11-16 00:00:00", "6 days ago"},
        {"2026-11-15 23:00:00", "last week"},     {"2026-11-08 12:00:00", "2 weeks ago"},
        {"2026-10-23 12:00:00", "4 weeks ago"},   {"2026-10-22 12:00:00", "last month"},
        {"2025-11-23 12:00:00", "11 months ago"}, {"2025-11-22 12:00:00", "last year"},
        {"2016-11-22 12:00:00", "10 years ago"},  {"2026-11-22 16:05:00", "in 2 hours"},
        {"2026-11-23 15:05:00", "tomorrow"},
    };
    for (const auto &[time, text] : rows)
        EXPECT_EQ(dates.text(at(QString::fromLatin1(time)), now), QString::fromLatin1(text))
            << time;
    EXPECT_EQ(dates.text({}, now), QString());

    const QDateTime twoDaysBefore = now.addDays(-2);
    EXPECT_EQ(RelativeDate(german).text(twoDaysBefore, now), u"vorgestern"_s);
    EXPECT_EQ(RelativeDate(QLocale::c()).text(twoDaysBefore, now), u"2 days ago"_s);
    EXPECT_EQ(RelativeDate(QLocale(u"sr_Latn_RS"_s)).text(twoDaysBefore, now), u"prekjuče"_s);
    EXPECT_EQ(RelativeDate(localeNamed(u"sr_RS.UTF-8@latin"_s)).text(twoDaysBefore, now),
              u"prekjuče"_s);
    EXPECT_EQ(RelativeDate(localeNamed(u"sr_RS.UTF-8"_s)).text(twoDaysBefore, now), u"прекјуче"_s);
    EXPECT_EQ(RelativeDate(QLocale(u"zh_TW"_s)).text(twoDaysBefore, now), u"前天"_s);
}

TEST(DateTimeText, isShortAndInTheUsersForm)
{
    const QDateTime time = at(u"2026-11-22 14:05:09"_s);
    EXPECT_EQ(dateTimeText(time, english), u"Nov 22, 2026 at 2:05\u202FPM"_s);
    EXPECT_EQ(dateTimeText(time, QLocale(u"en_GB"_s)), u"22 Nov 2026 at 14:05"_s);
    EXPECT_EQ(dateTimeText(time, german), u"22.11.2026 um 14:05"_s);
    EXPECT_EQ(dateTimeText(time.toUTC(), english), dateTimeText(time, english));
    EXPECT_EQ(dateTimeText({}, english), QString());
}

TEST(DateTimeText, isInTheTimeZoneOfTheRows)
{
    const QByteArray before = qgetenv("TZ");
    // Rules that ICU does not know.
    for (const auto &[zone, hour] :
         {std::pair("XYZ5XYD,M3.2.0,M11.1.0", "7:05"), std::pair("<+0330>-3:30", "3:35")}) {
        qputenv("TZ", zone);
        tzset();
        const QDateTime time(QDate(2026, 11, 22), QTime(12, 5), Qt::UTC);
        EXPECT_TRUE(dateTimeText(time, english).contains(QString::fromLatin1(hour)))
            << zone << dateTimeText(time, english).toStdString();
    }
    before.isNull() ? qunsetenv("TZ") : qputenv("TZ", before);
    tzset();
}

} // namespace
} // namespace clipwren
