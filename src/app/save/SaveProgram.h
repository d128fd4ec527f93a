#pragma once

#include <QStringList>

namespace clipwren {

/// Runs `clipwren save` with what follows that word, into the folder unless that names another.
/// Needs a QCoreApplication; returns the exit status.
int runSave(const QStringList &arguments, const QString &downloadDirectory);

} // namespace clipwren
