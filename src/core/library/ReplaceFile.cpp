#include "core/library/ReplaceFile.h"

#include "core/process/FileDescriptor.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

namespace clipwren {

namespace {

using namespace Qt::StringLiterals;

const QString newPart = u".new-"_s;

/// Throws the reason in errno unless the call went well.
void check(bool wentWell)
{
    if (!wentWell)
        throw std::system_error(errno, std::generic_category());
}

void flushToDisk(int descriptor)
{
    // Some network and FUSE file systems have no fsync(); that is no failed write.
    check(::fsync(descriptor) == 0 || errno == EINVAL || errno == ENOTSUP);
}

void writeAll(int descriptor, const QByteArray &bytes)
{
    qsizetype written = 0;
    while (written < bytes.size()) {
        const ssize_t count = ::write(descriptor, bytes.constData() + written,
                                      static_cast<std::size_t>(bytes.size() - written));
        check(count >= 0 || errno == EINTR);
        written += std::max<ssize_t>(count, 0);
    }
}

void removeLeftovers(const QString &path)
{
    const QFileInfo file(path);
    QDir folder = file.dir();
    for (const QString &name :
         folder.entryList({file.fileName() + newPart + u"??????"_s}, QDir::Files))
        folder.remove(name);
}

} // namespace

void replaceFile(const QString &path, const QByteArray &bytes)
{
    removeLeftovers(path);
    QByteArray newPath = QFile::encodeName(path + newPart + u"XXXXXX"_s);
    const FileDescriptor file(::mkostemp(newPath.data(), O_CLOEXEC));
    check(file.isOpen());
    try {
        writeAll(file.get(), bytes);
        flushToDisk(file.get());
        check(::rename(newPath.constData(), QFile::encodeName(path).constData()) == 0);
    } catch (const std::system_error &) {
        ::unlink(newPath.constData());
        throw;
    }
    flushFolderOf(path);
}

void flushFolderOf(const QString &path)
{
    const QByteArray folder = QFile::encodeName(QFileInfo(path).path());
    const FileDescriptor descriptor(::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    // The file is written; only a loss of power could still take its new name away.
    if (descriptor.isOpen())
        ::fsync(descriptor.get());
}

} // namespace clipwren
