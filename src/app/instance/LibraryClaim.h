#pragma once

#include "app/instance/InstanceChannel.h"
#include "core/process/FileDescriptor.h"

#include <QString>

#include <chrono>
#include <cstdint>
#include <stop_token>

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

/// How a process came to the user's lists.
struct LibraryClaim {
    enum class Outcome : std::uint8_t {
        Held, ///< `lock` is held, so the lists are this process's
        Delivered, ///< the application that has them open has dealt with the message
        Refused, ///< that application got the message but could not deal with it
        Silent, ///< they stayed locked, and nobody answered
        Unusable, ///< nobody can lock them; `lock` says why
    };

    Outcome outcome = Outcome::Silent;
    LibraryLock lock;
};

/// Takes the lock of the lists in this folder, or gives the message to whoever has it, whichever
/// comes first. Blocks for about as long as `patience`; a stop ends it with `Silent`.
LibraryClaim claimLibrary(const QString &libraryFolder, const InstanceMessage &message,
                          std::chrono::milliseconds patience, const std::stop_token &stop = {});

} // namespace clipwren
