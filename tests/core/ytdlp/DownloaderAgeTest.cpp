#include "core/ytdlp/DownloaderAge.h"

#include "support/Printing.h"

#include <gtest/gtest.h>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

TEST(DownloaderAge, tellsTheAgeOfAVersionThatIsADate)
{
    const std::tuple<QString, QDate, std::optional<QString>> cases[] = {
        {u"2023.03.04"_s, QDate(2023, 3, 4), u"0 days old"_s},
        {u"2023.03.04"_s, QDate(2023, 3, 5), u"1 day old"_s},
        {u"2023.03.04"_s, QDate(2023, 5, 2), u"59 days old"_s},
        {u"2023.03.04"_s, QDate(2023, 5, 4), u"2 months old"_s},
        {u"2023.03.04"_s, QDate(2023, 8, 1), u"5 months old"_s},
        {u"2023.03.04"_s, QDate(2024, 3, 4), u"12 months old"_s},
        {u"2023.03.04"_s, QDate(2024, 3, 5), u"over a year old"_s},
        {u"2023.03.04"_s, QDate(2026, 3, 4), u"over two years old"_s},
        {u"2023.03.04"_s, QDate(2026, 5, 1), u"over three years old"_s},
        {u"2023.03.04"_s, QDate(2040, 1, 1), u"over 16 years old"_s},
        {u"2024.08.06.232832"_s, QDate(2024, 8, 16), u"10 days old"_s},
        {u"2024.8.6"_s, QDate(2024, 8, 16), u"10 days old"_s},
        {u"2023.03.04"_s, QDate(2023, 3, 3), std::nullopt},
        {u"2023.13.04"_s, QDate(2026, 3, 4), std::nullopt},
        {u"2023.03.041"_s, QDate(2026, 3, 4), std::nullopt},
        {u"v2023.03.04"_s, QDate(2026, 3, 4), std::nullopt},
        {u"7.0.1"_s, QDate(2026, 3, 4), std::nullopt},
        {{}, QDate(2026, 3, 4), std::nullopt},
    };
    for (const auto &[version, today, age] : cases)
        EXPECT_EQ(ageText(version, today), age) << version.toStdString();
}

TEST(DownloaderAge, saysWhatHelpsWhenItIsOlderThanNinetyDays)
{
    const QString version = u"2023.03.04"_s;
    EXPECT_EQ(outdatedHint(u"/usr/bin/yt-dlp"_s, version, QDate(2023, 6, 2)), std::nullopt);
    EXPECT_EQ(outdatedHint(u"/usr/bin/yt-dlp"_s, version, QDate(2023, 6, 3)),
              u"yt-dlp 2023.03.04 is 3 months old. A newer one may help. Put it into "
              "/usr/local/bin, which is searched first."_s);
    EXPECT_EQ(outdatedHint(u"/opt/homebrew/bin/yt-dlp"_s, version, QDate(2026, 6, 3)),
              u"yt-dlp 2023.03.04 is over three years old. A newer one may help. Run “brew "
              "upgrade yt-dlp”."_s);
    EXPECT_EQ(outdatedHint(u"/usr/bin/yt-dlp"_s, u"local-build"_s, QDate(2026, 6, 3)),
              std::nullopt);
}

} // namespace
} // namespace clipwren
