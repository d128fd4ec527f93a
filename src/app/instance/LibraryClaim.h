#pragma once

#include "app/instance/InstanceMessage.h"
#include "app/instance/LibraryLock.h"

#include <chrono>
#include <cstdint>
#include <stop_token>

namespace clipwren {

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
