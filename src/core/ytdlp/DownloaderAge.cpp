#include "core/ytdlp/DownloaderAge.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <cmath>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

constexpr qint64 outdatedDays = 90;

QString daysText(int days)
{
    return days == 1 ? QCoreApplication::translate("DownloaderAge", "1 day old")
                     : QCoreApplication::translate("DownloaderAge", "%n days old", nullptr, days);
}

QString monthsText(int months)
{
    return months == 1
        ? QCoreApplication::translate("DownloaderAge", "1 month old")
        : QCoreApplication::translate("DownloaderAge", "%n months old", nullptr, months);
}

QString yearsText(int years)
{
    static constexpr const char *texts[] = {
        QT_TRANSLATE_NOOP("DownloaderAge", "over a year old"),
        QT_TRANSLATE_NOOP("DownloaderAge", "over two years old"),
        QT_TRANSLATE_NOOP("DownloaderAge", "over three years old"),
        QT_TRANSLATE_NOOP("DownloaderAge", "over four years old"),
        QT_TRANSLATE_NOOP("DownloaderAge", "over five years old"),
        QT_TRANSLATE_NOOP("DownloaderAge", "over six years old"),
        QT_TRANSLATE_NOOP("DownloaderAge", "over seven years old"),
        QT_TRANSLATE_NOOP("DownloaderAge", "over eight years old"),
        QT_TRANSLATE_NOOP("DownloaderAge", "over nine years old"),
        QT_TRANSLATE_NOOP("DownloaderAge", "over ten years old")};
    return years <= static_cast<int>(std::size(texts))
        ? QCoreApplication::translate("DownloaderAge", texts[years - 1])
        : QCoreApplication::translate("DownloaderAge", "over %n years old", nullptr, years);
}

struct Update {
    QLatin1StringView folder;
    QString text;
};

/// Each way of installing yt-dlp has its own way to update it.
QString howToUpdate(const QString &path)
{
    const Update updates[] = {
        {"/opt/homebrew/"_L1,
         QCoreApplication::translate("DownloaderAge", "Run “brew upgrade yt-dlp”")},
        {"/opt/local/"_L1,
         QCoreApplication::translate("DownloaderAge", "Run “sudo port upgrade yt-dlp”")},
        {"/usr/local/"_L1,
         QCoreApplication::translate("DownloaderAge",
                                     "Run “sudo yt-dlp -U”, or “brew upgrade yt-dlp”")},
    };
    for (const Update &update : updates) {
        if (path.startsWith(update.folder))
            return update.text;
    }
    return QCoreApplication::translate("DownloaderAge",
                                       "Put it into /usr/local/bin, which is searched first");
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
        return daysText(static_cast<int>(days));
    constexpr double monthsOfADay = 12 / 365.25;
    return monthsText(static_cast<int>(std::lround(static_cast<double>(days) * monthsOfADay)));
}

std::optional<QString> outdatedHint(const QString &path, const QString &version, const QDate &today)
{
    const std::optional<QString> age = ageText(version, today);
    if (!age || releaseDate(version)->daysTo(today) <= outdatedDays)
        return std::nullopt;
    return QCoreApplication::translate("DownloaderAge",
                                       "yt-dlp %1 is %2. A newer one may help. %3.")
        .arg(version, *age, howToUpdate(path));
}

} // namespace clipwren
