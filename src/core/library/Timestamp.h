#pragma once

#include <QDateTime>
#include <QString>

#include <optional>

namespace clipwren {

/// The time now in UTC, cut to the whole second, so that it reads back from a file as it was.
QDateTime currentTimestamp();

/// The same instant in UTC and whole seconds. A time that `timestampText` cannot write (invalid,
/// or outside the years 1 to 9999) becomes the current one.
QDateTime storableTimestamp(const QDateTime &time);

/// As in "2026-03-01T14:05:09Z". The time is one that `storableTimestamp` gave.
QString timestampText(const QDateTime &time);

/// Reads exactly the form that `timestampText` writes, and real calendar dates only.
std::optional<QDateTime> parseTimestamp(QStringView text);

} // namespace clipwren
