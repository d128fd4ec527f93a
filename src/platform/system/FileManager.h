#pragma once

#include <QString>

namespace clipwren {

/// True in a Flatpak.
bool isSandboxed();

/// Shows a file or folder, selected, in a window of the desktop's file manager; where the desktop
/// has no interface for that, opens the folder that holds it. What does not exist is replaced by
/// the nearest folder above it that does. Does not wait for the file manager. From a sandbox, where
/// other programs cannot be called, the desktop's portal is asked.
void revealInFileManager(const QString &path, bool isSandboxed = clipwren::isSandboxed());

} // namespace clipwren
