#pragma once

#include <QString>

namespace clipwren {

/// The text with one blank for each line break, or for several in a row. Line feed, carriage
/// return, vertical tab, form feed, next line, and the separators of lines and paragraphs count.
QString singleLine(const QString &text);

} // namespace clipwren
