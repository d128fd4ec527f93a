#pragma once

#include <QString>

namespace clipwren {

// In UTF-16 units. Sites allow some hundred; laying out a title of a million blocks the window for
// half a minute.
inline constexpr qsizetype longestTitle = 2'000;

/// At most `maximum` UTF-16 units of the text, cut between characters as people see them, or inside
/// one that alone is longer.
QString boundedText(const QString &text, qsizetype maximum);

} // namespace clipwren
