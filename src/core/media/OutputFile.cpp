#include "core/media/OutputFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/file.h>
#include <system_error>
#include <unistd.h>

namespace clipwren {
namespace {

/// Also true of a link that leads nowhere, through which a tool would write somewhere else.
bool isTaken(const QString &path)
{
    const QFileInfo file(path);
    return file.exists() || file.isSymLink();
}

/// Folders and devices are left alone: the tool says itself what it cannot write to.
bool isReplaceable(const QString &path)
{
    const QFileInfo file(path);
    return file.isFile() || file.isSymLink();
}

/// As rename(2): takes the place of a file that has the name.
bool rename(const QString &from, const QString &to)
{
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

void removeFolder(const QString &path)
{
    ::rmdir(QFile::encodeName(path).constData());
}

// The file keeps its name inside, which may be as long as the file system allows.
const QString earlierFolderTemplate = QStringLiteral(".clipwren-earlier-XXXXXX");

/// With the slash before it.
QString nameOf(const QString &path)
{
    return path.sliced(path.lastIndexOf(u'/'));
}

/// The system gives the lock back when the process ends, however that comes. Not open where
/// somebody else has it, or where the file system has none for folders.
FileDescriptor lockFolder(const QString &path, int mode)
{
    FileDescriptor folder(::open(QFile::encodeName(path).constData(),
                                 O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (folder.isOpen() && ::flock(folder.get(), mode) != 0)
        folder.close();
    return folder;
}

} // namespace

OutputFile::OutputFile(const QString &path) : m_path(path)
{
    if (isReplaceable(path))
        moveAside();
}

void OutputFile::moveAside()
{
    const QString parent = m_path.first(m_path.lastIndexOf(u'/') + 1);
    // Another process that starts may take the folder for one that was left, before it is locked.
    for (int attempts = 3;; --attempts) {
        QByteArray folder = QFile::encodeName(parent + earlierFolderTemplate);
        if (!::mkdtemp(folder.data()))
            break;
        m_earlierFolder = QFile::decodeName(folder);
        m_lock = lockFolder(m_earlierFolder, LOCK_EX);
        if (rename(m_path, m_earlierFolder + nameOf(m_path)))
            return;
        const int error = errno;
        removeFolder(m_earlierFolder);
        errno = error;
        if (error != ENOENT || attempts == 1)
            break;
    }
    throw std::system_error(errno, std::generic_category(), m_path.toStdString());
}

OutputFile::~OutputFile()
{
    if (m_kept)
        return;
    if (m_earlierFolder.isEmpty()) {
        if (isReplaceable(m_path))
            QFile::remove(m_path);
    } else {
        rename(m_earlierFolder + nameOf(m_path), m_path);
        removeFolder(m_earlierFolder);
    }
}

void OutputFile::keep()
{
    // A tool that claims success without a file does not cost the earlier one.
    if (!QFileInfo::exists(m_path))
        return;
    m_kept = true;
    if (m_earlierFolder.isEmpty())
        return;
    QFile::remove(m_earlierFolder + nameOf(m_path));
    removeFolder(m_earlierFolder);
}

void OutputFile::restoreAfterKill(const QString &folder)
{
    const QStringList ours{QString(earlierFolderTemplate).replace(u'X', u'?')};
    for (const QFileInfo &left :
         QDir(folder).entryInfoList(ours, QDir::Dirs | QDir::Hidden | QDir::NoSymLinks)) {
        const QString path = left.filePath();
        const FileDescriptor lock = lockFolder(path, LOCK_EX | LOCK_NB);
        if (!lock.isOpen())
            continue;
        for (const QString &name : QDir(path).entryList(QDir::Files | QDir::Hidden | QDir::System))
            rename(path + u'/' + name, folder + u'/' + name);
        removeFolder(path);
    }
}

QString nextFreePath(const QString &path)
{
    const qsizetype dot = path.lastIndexOf(u'.');
    const qsizetype stemEnd = dot > path.lastIndexOf(u'/') + 1 ? dot : path.size();
    for (int number = 2;; ++number) {
        const QString candidate =
            path.first(stemEnd) + u' ' + QString::number(number) + path.sliced(stemEnd);
        if (!isTaken(candidate))
            return candidate;
    }
}

} // namespace clipwren
