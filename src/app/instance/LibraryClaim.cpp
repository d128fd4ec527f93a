#include "app/instance/LibraryClaim.h"

#include "app/instance/InstanceChannel.h"

#include <QDeadlineTimer>

#include <algorithm>

namespace clipwren {

LibraryClaim claimLibrary(const QString &libraryFolder, const InstanceMessage &message,
                          std::chrono::milliseconds patience, const std::stop_token &stop)
{
    using namespace std::chrono_literals;
    using Outcome = LibraryClaim::Outcome;
    const QDeadlineTimer deadline(patience);
    // A process that starts, ends or saves holds the lock for a moment without an answer.
    do {
        LibraryLock lock(libraryFolder, std::min<std::chrono::milliseconds>(patience, 100ms));
        if (lock.isHeld())
            return {Outcome::Held, std::move(lock)};
        if (!lock.isHeldElsewhere())
            return {Outcome::Unusable, std::move(lock)};
        const InstanceAnswer answer = sendToRunningInstance(
            message, libraryFolder, std::chrono::milliseconds(deadline.remainingTime()), stop);
        if (answer == InstanceAnswer::Done)
            return {Outcome::Delivered, {}};
        if (answer == InstanceAnswer::Failed)
            return {Outcome::Refused, {}};
    } while (!deadline.hasExpired() && !stop.stop_requested());
    return {};
}

} // namespace clipwren
