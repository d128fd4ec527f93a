#pragma once

#include "core/process/FileDescriptor.h"

#include <QString>

namespace clipwren {

/// The file that a tool is about to write.
///
/// A file that has its name already waits in a hidden folder beside it. Until `keep()` is called,
/// destroying this removes what was written and puts the earlier file back.
class OutputFile {
public:
    /// Throws `std::system_error` when an earlier file cannot be seen or moved.
    explicit OutputFile(const QString &path);
    OutputFile(const OutputFile &) = delete;
    OutputFile &operator=(const OutputFile &) = delete;
    ~OutputFile();

    /// The new file is whole; the earlier one goes. Throws `std::system_error` when that cannot be
    /// seen or removed, and is not kept then.
    void keep();

    /// Puts the files of a folder back that processes had moved aside when they were killed. What
    /// a running process has moved stays.
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
/// Meanwhile a hidden folder beside it holds a hard link to it. Destroying this puts it back
/// where it is gone or another. `OutputFile::restoreAfterKill` does so after a kill.
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

/// False only where there certainly is nothing of that name.
bool mayExist(const QString &path);

/// `path` with the least number from 2 on before the extension that no file has yet, as in
/// "Talk 2.mov".
QString nextFreePath(const QString &path);

} // namespace clipwren
