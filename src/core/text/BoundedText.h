#pragma once

#include <QString>

namespace clipwren {

// In UTF-16 units. The longest title of a big site has some hundred; a window that shows one of a
// million stands still for half a minute.
inline constexpr qsizetype longestTitle = 2'000;

/// At most `maximum` UTF-16 units of the text, cut between characters as people see them, or inside
/// one that alone is longer.
QString boundedText(const QString &text, qsizetype maximum);

} // namespace clipwren
