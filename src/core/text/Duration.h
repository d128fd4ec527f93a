#pragma once

#include <QString>

#include <optional>

namespace clipwren {

/// Seconds as "4:05", or "1:02:05" from an hour on; rounded to whole seconds. "—" for what is
/// negative, not finite, or too large to be a duration.
QString formatDuration(double seconds);

/// As `formatDuration`, rounded to tenths of a second: "4:05.3".
QString formatDurationTenths(double seconds);

/// Reads seconds ("12.5") or "[h:]mm:ss[.s]", as in "1:02:05.5". Nothing for other texts.
std::optional<double> parseTime(QStringView text);

} // namespace clipwren
