#pragma once

#include "core/process/FileDescriptor.h"

#include <QString>

#include <chrono>

namespace clipwren {

/// Who holds it is the only process that reads and writes the user's lists. The system gives it
/// back when the process ends, however that comes.
class LibraryLock {
public:
    /// Held by nobody.
    LibraryLock() = default;
    /// Tries to take the lock of the folder that holds the lists, which is created when absent,
    /// for at most that long.
    explicit LibraryLock(const QString &folder, std::chrono::milliseconds patience = {});

    bool isHeld() const { return m_file.isOpen(); }
    /// False also where the folder cannot be used, so that nobody can hold the lock.
    bool isHeldElsewhere() const { return m_isHeldElsewhere; }
    /// Why nobody can hold it; empty when somebody does.
    QString error() const { return m_error; }

private:
    void take(const QString &folder, std::chrono::milliseconds patience);

    bool m_isHeldElsewhere = false;
    QString m_error;
    FileDescriptor m_file;
};

} // namespace clipwren
