#pragma once

#include <QString>

namespace clipwren {

/// The folder of the library's files, such as ~/.local/share/Clipwren. Does not create it.
///
/// The same whatever the application object is called, so that every build and the command line
/// see one library.
QString defaultLibraryFolder();

/// Creates a folder, and those it lies in, unless it is there. Throws `std::system_error`.
void createFolder(const QString &path);

} // namespace clipwren
