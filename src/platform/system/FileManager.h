#pragma once

#include <QString>

namespace clipwren {

/// Shows a file or folder, selected, in a window of the desktop's file manager; where the desktop
/// has no interface for that, opens the folder that holds it. What does not exist is replaced by
/// the nearest folder above it that does. Does not wait for the file manager.
void revealInFileManager(const QString &path);

} // namespace clipwren
