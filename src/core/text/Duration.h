#pragma once

#include <QString>

namespace clipwren {

/// Seconds as "4:05", or "1:02:05" from an hour on; rounded to whole seconds. "—" for what is
/// negative, not finite, or too large to be a duration.
QString formatDuration(double seconds);

} // namespace clipwren
