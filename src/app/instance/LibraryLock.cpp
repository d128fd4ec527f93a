#include "app/instance/LibraryLock.h"

#include "core/library/LibraryFolder.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <thread>

namespace clipwren {

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
    const QByteArray path = QFile::encodeName(folder + QStringLiteral("/lock"));
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

} // namespace clipwren
