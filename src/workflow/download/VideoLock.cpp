#include "workflow/download/VideoLock.h"

#include "core/Error.h"
#include "core/process/StopSignal.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

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

/// False where another one has taken the file away since it was opened.
bool isStillThere(const FileDescriptor &file, const QString &path)
{
    struct stat opened { };
    struct stat named { };
    return ::fstat(file.get(), &opened) == 0
        && ::lstat(QFile::encodeName(path).constData(), &named) == 0
        && opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

/// Empty where there is no such file.
QString identityOf(const QString &path)
{
    struct stat status { };
    if (::lstat(QFile::encodeName(path).constData(), &status) != 0)
        return {};
#ifdef __APPLE__
    const timespec changed = status.st_mtimespec;
#else
    const timespec changed = status.st_mtim;
#endif
    return u"%1 %2 %3.%4"_s.arg(status.st_ino)
        .arg(status.st_size)
        .arg(changed.tv_sec)
        .arg(changed.tv_nsec);
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
    while (!lock->tryToTake()) {
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

bool VideoLock::tryToTake()
{
    // Once more where the one before us has just taken the file away.
    for (int attempts = 3; attempts > 0; --attempts) {
        FileDescriptor file(::open(QFile::encodeName(m_path).constData(),
                                   O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, 0600));
        if (!file.isOpen())
            return true;
        if (::flock(file.get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK)
            return false;
        if (!isStillThere(file, m_path))
            continue;
        m_file = std::move(file);
        readDownloads();
        return true;
    }
    return false;
}

VideoLock::~VideoLock()
{
    // While it is locked, so that nobody's new file is taken away.
    if (m_file.isOpen() && downloads().isEmpty())
        QFile::remove(m_path);
}

// The downloads

void VideoLock::addDownload(const QString &path, const QString &purpose)
{
    m_downloads.append({path, purpose, identityOf(path)});
    writeDownloads();
}

QStringList VideoLock::downloads() const
{
    QStringList paths;
    for (const Download &download : m_downloads) {
        if (!download.identity.isEmpty() && identityOf(download.path) == download.identity)
            paths.append(download.path);
    }
    return paths;
}

std::optional<QString> VideoLock::downloadFor(const QString &purpose) const
{
    const QStringList there = downloads();
    for (const Download &download : m_downloads) {
        if (download.purpose == purpose && there.contains(download.path))
            return download.path;
    }
    return std::nullopt;
}

void VideoLock::forgetDownload(const QString &path)
{
    m_downloads.removeIf([&](const Download &download) { return download.path == path; });
    writeDownloads();
}

void VideoLock::readDownloads()
{
    QFile file;
    if (!file.open(m_file.get(), QIODevice::ReadOnly) || !file.seek(0))
        return;
    const QString folder = QFileInfo(m_path).path() + u'/';
    for (const QJsonValue &value : QJsonDocument::fromJson(file.readAll()).array()) {
        const QString name = value["name"_L1].toString();
        // Nobody's hand makes us remove a file elsewhere.
        if (!name.contains(u'/'))
            m_downloads.append(
                {folder + name, value["purpose"_L1].toString(), value["identity"_L1].toString()});
    }
}

void VideoLock::writeDownloads()
{
    QJsonArray array;
    for (const Download &download : m_downloads)
        array.append(QJsonObject{{"name"_L1, QFileInfo(download.path).fileName()},
                                 {"purpose"_L1, download.purpose},
                                 {"identity"_L1, download.identity}});
    QFile file;
    if (file.open(m_file.get(), QIODevice::WriteOnly) && file.resize(0) && file.seek(0))
        file.write(QJsonDocument(array).toJson());
}

void VideoLock::removeAfterKill(const QString &folder)
{
    const QStringList ours{nameTemplate.arg(QString(hashDigits, u'?'))};
    for (const QFileInfo &left : QDir(folder).entryInfoList(ours, QDir::Files | QDir::Hidden)) {
        // It goes with the lock that it was, or stays.
        VideoLock lock(left.filePath());
        lock.tryToTake();
    }
}

} // namespace clipwren
