#include "core/media/OutputFile.h"

#include "core/Logging.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <tuple>
#include <unistd.h>
#include <utility>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

/// Also true of a dangling symbolic link: a tool would write through it to its target.
bool isTaken(const QString &path)
{
    const QFileInfo file(path);
    return file.exists() || file.isSymLink();
}

[[noreturn]] void throwError(const QString &path)
{
    throw std::system_error(errno, std::generic_category(), path.toStdString());
}

/// The file type bits of stat(2); 0 when nothing has that name. Throws on any other failure, since
/// a file that is overlooked would be replaced.
mode_t fileTypeOf(const QString &path)
{
    struct stat status { };
    if (::lstat(QFile::encodeName(path).constData(), &status) == 0)
        return status.st_mode & S_IFMT;
    if (errno != ENOENT)
        throwError(path);
    return 0;
}

/// As rename(2), which replaces an existing file.
bool rename(const QString &from, const QString &to)
{
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

void removeFolder(const QString &path)
{
    if (::rmdir(QFile::encodeName(path).constData()) != 0)
        qCInfo(libraryLog) << "Cannot remove the folder" << path << qt_error_string();
}

// A folder, because a prefixed file name could be longer than the file system allows.
const QString earlierFolderTemplate = u".clipwren-earlier-XXXXXX"_s;

/// The file name with the slash before it.
QString nameOf(const QString &path)
{
    return path.sliced(path.lastIndexOf(u'/'));
}

FileDescriptor openFolder(const QString &path)
{
    return FileDescriptor(::open(QFile::encodeName(path).constData(),
                                 O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

/// Some file systems cannot lock folders; then no other process treats ours as unlocked, either.
bool isLockMissing(int error)
{
    return error == EOPNOTSUPP || error == ENOLCK || error == EBADF || error == EINVAL;
}

/// Makes a hidden folder beside the file and moves or links the file into it; returns the folder
/// and the lock on it. `put` has the arguments of rename().
std::pair<QString, FileDescriptor>
moveIntoHiddenFolder(const QString &file, bool (*put)(const QString &, const QString &))
{
    const QString parent = file.first(file.lastIndexOf(u'/') + 1);
    // Another process may remove the folder as abandoned before it is locked.
    for (int attempts = 3;; --attempts) {
        QByteArray name = QFile::encodeName(parent + earlierFolderTemplate);
        if (!::mkdtemp(name.data()))
            throwError(file);
        const QString folder = QFile::decodeName(name);
        FileDescriptor lock = openFolder(folder);
        if (lock.isOpen() && (::flock(lock.get(), LOCK_EX) == 0 || isLockMissing(errno))
            && put(file, folder + nameOf(file)))
            return {folder, std::move(lock)};
        const int error = errno;
        removeFolder(folder);
        errno = error;
        if (error != ENOENT || attempts == 1)
            throwError(file);
    }
}

/// Some file systems have no hard links; there the file is moved.
bool linkOrRename(const QString &from, const QString &to)
{
    return ::link(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0
        || rename(from, to);
}

/// Replaces what has the name `to`, unless it is the same file.
void putBack(const QString &from, const QString &to)
{
    // rename() does nothing when both names are of one file.
    if (rename(from, to))
        ::unlink(QFile::encodeName(from).constData());
    else
        qCWarning(libraryLog) << "Cannot move" << from << "back to" << to << qt_error_string();
}

} // namespace

OutputFile::OutputFile(const QString &path) : m_path(path)
{
    // Folders and devices are not moved: the tool reports that it cannot write there.
    const mode_t kind = fileTypeOf(path);
    if (kind == S_IFREG || kind == S_IFLNK)
        moveAside();
}

void OutputFile::moveAside()
{
    std::tie(m_earlierFolder, m_lock) = moveIntoHiddenFolder(m_path, &rename);
}

OutputFile::~OutputFile()
{
    if (m_kept)
        return;
    if (m_earlierFolder.isEmpty()) {
        if (const QFileInfo file(m_path); file.isFile() || file.isSymLink())
            QFile::remove(m_path);
    } else {
        putBack(m_earlierFolder + nameOf(m_path), m_path);
        removeFolder(m_earlierFolder);
    }
}

void OutputFile::keep()
{
    // Keep the earlier file when the tool reports success but wrote none.
    if (fileTypeOf(m_path) == 0)
        return;
    if (!m_earlierFolder.isEmpty()) {
        const QString earlier = m_earlierFolder + nameOf(m_path);
        // Otherwise the next start would put it back over the new one.
        if (::unlink(QFile::encodeName(earlier).constData()) != 0 && errno != ENOENT)
            throwError(m_path);
        removeFolder(m_earlierFolder);
    }
    m_kept = true;
}

void OutputFile::restoreAfterKill(const QString &folder)
{
    const QStringList ours{QString(earlierFolderTemplate).replace(u'X', u'?')};
    for (const QFileInfo &left :
         QDir(folder).entryInfoList(ours, QDir::Dirs | QDir::Hidden | QDir::NoSymLinks)) {
        const QString path = left.filePath();
        const FileDescriptor lock = openFolder(path);
        if (!lock.isOpen() || ::flock(lock.get(), LOCK_EX | LOCK_NB) != 0)
            continue;
        for (const QString &name : QDir(path).entryList(QDir::Files | QDir::Hidden | QDir::System))
            putBack(path + u'/' + name, folder + u'/' + name);
        removeFolder(path);
    }
}

KeptFile::KeptFile(const QString &path) : m_path(path)
{
    std::tie(m_folder, m_lock) = moveIntoHiddenFolder(path, &linkOrRename);
}

KeptFile::~KeptFile()
{
    putBack(m_folder + nameOf(m_path), m_path);
    removeFolder(m_folder);
}

bool mayExist(const QString &path)
{
    try {
        return fileTypeOf(path) != 0;
    } catch (const std::system_error &) {
        return true;
    }
}

QString nextFreePath(const QString &path)
{
    const qsizetype dot = path.lastIndexOf(u'.');
    const qsizetype stemEnd = dot > path.lastIndexOf(u'/') + 1 ? dot : path.size();
    for (int number = 2;; ++number) {
        QString candidate =
            path.first(stemEnd) + u' ' + QString::number(number) + path.sliced(stemEnd);
        if (!isTaken(candidate))
            return candidate;
    }
}

} // namespace clipwren
