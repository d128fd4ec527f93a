#pragma once

#include <QString>

namespace clipwren {

/// The text as one line that a terminal can show: line breaks and other control characters (C0, DEL
/// and C1, so every escape sequence) are blanks, and what turns the direction of the text that
/// follows is left out. The marks that right-to-left titles need stay.
QString forTerminal(QString text);

} // namespace clipwren
