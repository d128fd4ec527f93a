#pragma once

#include <QDateTime>
#include <QLocale>

namespace clipwren {

/// The locale that has this name in the C library, as in "sr_RS.UTF-8@latin".
QLocale localeNamed(const QString &name);

/// The locale in which the user wants dates, which may be another than that of words.
QLocale dateLocale();

/// A date with the month's short name and the time to the minute, in the user's time zone, as in
/// "Nov 22, 2026 at 14:05". Empty for an invalid time.
QString dateTimeText(const QDateTime &time, const QLocale &locale = dateLocale());

} // namespace clipwren
