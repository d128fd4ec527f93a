#include "platform/text/RelativeDate.h"

#include "platform/text/IcuText.h"

#include <cstdlib>
#include <unicode/reldatefmt.h>

namespace clipwren {
namespace {

struct Distance {
    qint64 count; ///< below 0 for the past
    URelativeDateTimeUnit unit;
};

constexpr qint64 minuteSeconds = 60;
constexpr qint64 hourSeconds = 60 * minuteSeconds;
constexpr qint64 daySeconds = 24 * hourSeconds;

/// Whole months from `from` to `to`, towards zero.
int monthsBetween(QDate from, QDate to)
{
    if (to < from)
        return -monthsBetween(to, from);
    int months = (to.year() - from.year()) * 12 + to.month() - from.month();
    if (from.addMonths(months) > to)
        --months;
    return months;
}

Distance distanceInDays(QDate from, QDate to)
{
    const qint64 days = from.daysTo(to);
    const int months = monthsBetween(from, to);
    if (std::abs(months) >= 12)
        return {months / 12, UDAT_REL_UNIT_YEAR};
    if (months != 0)
        return {months, UDAT_REL_UNIT_MONTH};
    if (std::abs(days) >= 7)
        return {days / 7, UDAT_REL_UNIT_WEEK};
    return {days, UDAT_REL_UNIT_DAY};
}

Distance distanceBetween(const QDateTime &from, const QDateTime &to)
{
    const qint64 seconds = from.secsTo(to);
    const qint64 size = std::abs(seconds);
    if (size < minuteSeconds)
        return {0, UDAT_REL_UNIT_SECOND};
    if (size < hourSeconds)
        return {seconds / minuteSeconds, UDAT_REL_UNIT_MINUTE};
    const QDate day = from.toLocalTime().date();
    const QDate otherDay = to.toLocalTime().date();
    // A day on which the clock is put back has more than 24 hours.
    if (size < daySeconds || day == otherDay)
        return {seconds / hourSeconds, UDAT_REL_UNIT_HOUR};
    return distanceInDays(day, otherDay);
}

} // namespace

struct RelativeDate::Formatter {
    UErrorCode status = U_ZERO_ERROR;
    icu::RelativeDateTimeFormatter format;

    explicit Formatter(const QLocale &locale) : format(icuLocale(locale), status) { }
};

RelativeDate::RelativeDate(const QLocale &locale) : m_locale(locale)
{
}

RelativeDate::~RelativeDate() = default;

QString RelativeDate::text(const QDateTime &time, const QDateTime &now) const
{
    if (!time.isValid())
        return {};
    if (!m_formatter)
        m_formatter = std::make_unique<Formatter>(m_locale);
    const Distance distance = distanceBetween(now, time);
    UErrorCode status = m_formatter->status;
    icu::UnicodeString text;
    m_formatter->format.format(static_cast<double>(distance.count), distance.unit, text, status);
    return toQString(text);
}

} // namespace clipwren
