#pragma once

#include <QStringList>

namespace clipwren {

/// Runs `clipwren save` with what follows that word. Needs a QCoreApplication; returns the exit
/// status.
int runSave(const QStringList &arguments);

} // namespace clipwren
