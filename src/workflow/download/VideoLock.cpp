#include "workflow/download/VideoLock.h"

#include "core/Error.h"
#include "core/process/StopSignal.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

const QString nameTemplate = u".clipwren-%1.lock"_s;
constexpr int hashDigits = 16;

/// False when its holder has removed the file since it was opened.
bool isStillNamed(const FileDescriptor &file, const QString &path)
{
    struct stat opened { };
    struct stat named { };
    return ::fstat(file.get(), &opened) == 0
        && ::lstat(QFile::encodeName(path).constData(), &named) == 0
        && opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

} // namespace

std::shared_ptr<VideoLock> VideoLock::acquire(const QString &folder, const QString &video,
                                              const std::function<void()> &onWait,
                                              const std::stop_token &stop)
{
    constexpr int pollMilliseconds = 100;
    QDir().mkpath(folder);
    const QByteArray hash = QCryptographicHash::hash(video.toUtf8(), QCryptographicHash::Sha256);
    const QString name = nameTemplate.arg(QString::fromLatin1(hash.toHex().first(hashDigits)));
    std::shared_ptr<VideoLock> lock(new VideoLock(folder + u'/' + name));
    const StopSignal stopSignal(stop);
    bool waits = false;
    while (!lock->tryAcquire()) {
        if (!std::exchange(waits, true))
            onWait();
        pollfd stopped{stopSignal.descriptor(), POLLIN, 0};
        ::poll(&stopped, 1, pollMilliseconds);
        if (stop.stop_requested())
            throw CancellationError();
    }
    return lock;
}

VideoLock::VideoLock(const QString &path) : m_path(path)
{
}

bool VideoLock::tryAcquire()
{
    // Retry when the previous holder has just removed the file.
    for (int attempts = 3; attempts > 0; --attempts) {
        FileDescriptor file(::open(QFile::encodeName(m_path).constData(),
                                   O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, 0600));
        if (!file.isOpen())
            return true;
        if (::flock(file.get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK)
            return false;
        if (!isStillNamed(file, m_path))
            continue;
        m_file = std::move(file);
        return true;
    }
    return false;
}

VideoLock::~VideoLock()
{
    // Removed while still locked, so that no other process's new file is removed.
    if (m_file.isOpen())
        QFile::remove(m_path);
}

void VideoLock::removeAfterKill(const QString &folder)
{
    const QStringList ours{nameTemplate.arg(QString(hashDigits, u'?'))};
    for (const QFileInfo &left : QDir(folder).entryInfoList(ours, QDir::Files | QDir::Hidden)) {
        // The destructor removes a file whose lock could be acquired.
        VideoLock lock(left.filePath());
        lock.tryAcquire();
    }
}

} // namespace clipwren
