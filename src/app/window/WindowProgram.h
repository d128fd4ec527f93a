#pragma once

#include <QString>

namespace clipwren {

/// Shows the window and, unless it is empty, looks the address up there; downloads go into the
/// folder. Where the user's application runs already, hands the address to it instead. Needs a
/// QApplication; returns the exit status.
int runWindow(const QString &address, const QString &downloadDirectory);

} // namespace clipwren
