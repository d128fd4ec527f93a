#pragma once

#include "core/process/FileDescriptor.h"

#include <QString>

namespace clipwren {

/// Protects the file that a tool is about to overwrite until the new one is complete.
///
/// An existing file of that name is moved into a hidden folder beside it. Unless `keep()` was
/// called, the destructor removes the new file and restores the earlier one.
class OutputFile {
public:
    /// Throws `std::system_error` when an existing file cannot be examined or moved.
    explicit OutputFile(const QString &path);
    OutputFile(const OutputFile &) = delete;
    OutputFile &operator=(const OutputFile &) = delete;
    ~OutputFile();

    /// The new file is complete: removes the earlier one. Throws `std::system_error` when that
    /// fails; then the earlier file is restored.
    void keep();

    /// Restores the files in a folder that killed processes had moved. Files that a running process
    /// has moved stay.
    static void restoreAfterKill(const QString &folder);

private:
    void moveAside();

    QString m_path;
    QString m_earlierFolder; ///< empty when there is no earlier file
    FileDescriptor m_lock; ///< on that folder, for as long as it is ours
    bool m_kept = false;
};

/// Protects a file that a tool may remove or replace while it runs.
///
/// A hidden folder beside it holds a hard link to it. The destructor restores the file if it was
/// removed or replaced; after a kill, `OutputFile::restoreAfterKill` does.
class KeptFile {
public:
    /// Throws `std::system_error` when the file cannot be kept.
    explicit KeptFile(const QString &path);
    KeptFile(const KeptFile &) = delete;
    KeptFile &operator=(const KeptFile &) = delete;
    ~KeptFile();

private:
    QString m_path;
    QString m_folder;
    FileDescriptor m_lock; ///< on that folder
};

/// False only when certainly nothing has that name.
bool mayExist(const QString &path);

/// `path` with the smallest number from 2 on before the extension that gives a free name, as in
/// "Talk 2.mov".
QString nextFreePath(const QString &path);

} // namespace clipwren
