#pragma once

#include <QString>

namespace clipwren {

/// A text for one line: a blank for each line break and tab. Other blanks stay, as many as they
/// are, since a file name or an address may have them.
QString inOneLine(const QString &text);

/// A tool tip that shows a text as it is. As plain text, one that looks like markup would be taken
/// for it.
QString plainToolTip(const QString &text);

} // namespace clipwren
