#include "core/ytdlp/DownloaderAge.h"

#include <QRegularExpression>

#include <cmath>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

constexpr qint64 outdatedDays = 90;

QString counted(qint64 count, const QString &unit)
{
    return u"%1 %2%3 old"_s.arg(count).arg(unit, count == 1 ? QString() : u"s"_s);
}

QString yearsText(int years)
{
    static const QString words[] = {u"a"_s,   u"two"_s,   u"three"_s, u"four"_s, u"five"_s,
                                    u"six"_s, u"seven"_s, u"eight"_s, u"nine"_s, u"ten"_s};
    const QString count =
        years <= static_cast<int>(std::size(words)) ? words[years - 1] : QString::number(years);
    return u"over %1 year%2 old"_s.arg(count, years == 1 ? QString() : u"s"_s);
}

struct Update {
    QLatin1StringView folder;
    QString text;
};

/// Each way of installing yt-dlp has its own way to update it.
QString howToUpdate(const QString &path)
{
    static const Update updates[] = {
        {"/opt/homebrew/"_L1, u"Run “brew upgrade yt-dlp”"_s},
        {"/opt/local/"_L1, u"Run “sudo port upgrade yt-dlp”"_s},
        {"/usr/local/"_L1, u"Run “sudo yt-dlp -U”, or “brew upgrade yt-dlp”"_s},
    };
    for (const Update &update : updates) {
        if (path.startsWith(update.folder))
            return update.text;
    }
    return u"Put it into /usr/local/bin, which is searched first"_s;
}

} // namespace

std::optional<QDate> releaseDate(const QString &version)
{
    static const QRegularExpression shape(u"^(\\d{4})\\.(\\d{1,2})\\.(\\d{1,2})(?!\\d)"_s);
    const QRegularExpressionMatch match = shape.match(version);
    const QDate date(match.captured(1).toInt(), match.captured(2).toInt(),
                     match.captured(3).toInt());
    return match.hasMatch() && date.isValid() ? std::optional(date) : std::nullopt;
}

std::optional<QString> ageText(const QString &version, const QDate &today)
{
    const std::optional<QDate> released = releaseDate(version);
    if (!released || *released > today)
        return std::nullopt;
    const qint64 days = released->daysTo(today);
    int years = 0;
    while (released->addYears(years + 1) < today)
        ++years;
    if (years > 0)
        return yearsText(years);
    if (days < 60)
        return counted(days, u"day"_s);
    constexpr double monthsOfADay = 12 / 365.25;
    return counted(std::lround(static_cast<double>(days) * monthsOfADay), u"month"_s);
}

std::optional<QString> outdatedHint(const QString &path, const QString &version, const QDate &today)
{
    const std::optional<QString> age = ageText(version, today);
    if (!age || releaseDate(version)->daysTo(today) <= outdatedDays)
        return std::nullopt;
    return u"yt-dlp %1 is %2. A newer one may help. %3."_s.arg(version, *age, howToUpdate(path));
}

} // namespace clipwren
