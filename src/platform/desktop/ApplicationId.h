#pragma once

#include <QLatin1StringView>

namespace clipwren {

/// What the desktop knows the program by: the name of its desktop entry and of its symbol.
inline constexpr QLatin1StringView applicationId("org.clipwren.Clipwren");

} // namespace clipwren
