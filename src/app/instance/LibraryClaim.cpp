#include "app/instance/LibraryClaim.h"

#include "core/library/LibraryFolder.h"

#include <QDeadlineTimer>
#include <QFile>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <thread>

namespace clipwren {

using namespace Qt::StringLiterals;

LibraryLock::LibraryLock(const QString &folder, std::chrono::milliseconds patience)
{
    try {
        take(folder, patience);
    } catch (const std::system_error &error) {
        m_error = QString::fromLocal8Bit(error.what());
    }
}

void LibraryLock::take(const QString &folder, std::chrono::milliseconds patience)
{
    createFolder(folder);
    const QByteArray path = QFile::encodeName(folder + u"/lock"_s);
    FileDescriptor file(::open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    if (!file.isOpen())
        throw std::system_error(errno, std::generic_category());
    ::fchmod(file.get(), S_IRUSR | S_IWUSR);
    const auto end = std::chrono::steady_clock::now() + patience;
    while (::flock(file.get(), LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR)
            throw std::system_error(errno, std::generic_category());
        if (std::chrono::steady_clock::now() >= end) {
            m_isHeldElsewhere = true;
            return;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    m_file = std::move(file);
}

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
