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

const QString nameTemplate = QStringLiteral(".clipwren-%1.lock");
constexpr int hashDigits = 16;

FileDescriptor openFile(const QString &path, int flags)
{
    return FileDescriptor(
        ::open(QFile::encodeName(path).constData(), O_RDWR | O_NOFOLLOW | O_CLOEXEC | flags, 0600));
}

/// False where another one has taken the file away since it was opened.
bool isStillThere(const FileDescriptor &file, const QString &path)
{
    struct stat opened { };
    struct stat named { };
    return ::fstat(file.get(), &opened) == 0
        && ::lstat(QFile::encodeName(path).constData(), &named) == 0
        && opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

} // namespace

std::shared_ptr<VideoLock> VideoLock::take(const QString &folder, const QString &video,
                                           const std::function<void()> &onWait,
                                           const std::stop_token &stop)
{
    constexpr int pollMilliseconds = 100;
    QDir().mkpath(folder);
    const QByteArray hash = QCryptographicHash::hash(video.toUtf8(), QCryptographicHash::Sha256);
    const QString name = nameTemplate.arg(QString::fromLatin1(hash.toHex().first(hashDigits)));
    const std::shared_ptr<VideoLock> lock(new VideoLock(folder + u'/' + name));
    const StopSignal stopSignal(stop);
    bool waits = false;
    while (lock->isHeldElsewhere()) {
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

bool VideoLock::isHeldElsewhere()
{
    // Once more where the one before us has just taken the file away.
    for (int attempts = 3; attempts > 0; --attempts) {
        FileDescriptor file = openFile(m_path, O_CREAT);
        if (!file.isOpen())
            return false;
        if (::flock(file.get(), LOCK_EX | LOCK_NB) != 0)
            return errno == EWOULDBLOCK;
        if (!isStillThere(file, m_path))
            continue;
        m_file = std::move(file);
        return false;
    }
    return true;
}

VideoLock::~VideoLock()
{
    // While it is locked, so that nobody's new file is taken away.
    if (m_file.isOpen())
        QFile::remove(m_path);
}

void VideoLock::removeAfterKill(const QString &folder)
{
    const QStringList ours{nameTemplate.arg(QString(hashDigits, u'?'))};
    for (const QFileInfo &left : QDir(folder).entryInfoList(ours, QDir::Files | QDir::Hidden)) {
        const FileDescriptor file = openFile(left.filePath(), 0);
        if (file.isOpen() && ::flock(file.get(), LOCK_EX | LOCK_NB) == 0
            && isStillThere(file, left.filePath()))
            QFile::remove(left.filePath());
    }
}

} // namespace clipwren
