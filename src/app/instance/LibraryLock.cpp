#include "app/instance/LibraryLock.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <thread>

namespace clipwren {

LibraryLock::LibraryLock(const QString &folder, std::chrono::milliseconds patience)
{
    QDir().mkpath(folder);
    const QByteArray path = QFile::encodeName(folder + QStringLiteral("/lock"));
    FileDescriptor file(::open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    const auto end = std::chrono::steady_clock::now() + patience;
    while (file.isOpen() && ::flock(file.get(), LOCK_EX | LOCK_NB) != 0) {
        m_isHeldElsewhere = errno == EWOULDBLOCK;
        if (std::chrono::steady_clock::now() >= end)
            return;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    m_isHeldElsewhere = false;
    m_file = std::move(file);
}

} // namespace clipwren
