#include "core/library/JsonArrayFile.h"

#include "core/process/FileDescriptor.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSaveFile>

#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <unistd.h>

namespace clipwren {
namespace {

std::optional<QByteArray> readFile(const QString &path)
{
    QFile file(path);
    // Opening a named pipe would wait for its other end.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    QByteArray bytes = file.readAll();
    if (file.error() != QFile::NoError)
        return std::nullopt;
    return bytes;
}

bool flushToDisk(int descriptor)
{
    // Some network and user-space file systems cannot say; that is no failed write.
    return ::fsync(descriptor) == 0 || errno == EINVAL || errno == ENOTSUP;
}

// A renamed or linked file is only safe once its folder is on the disk too.
void flushFolderOf(const QString &path)
{
    const QByteArray folder = QFile::encodeName(QFileInfo(path).path());
    const FileDescriptor descriptor(::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.isOpen())
        flushToDisk(descriptor.get());
}

// QSaveFile refuses to replace a read-only file, and gives the new file the old one's permissions:
// without this, a file that lost them would never be saved or read again.
void allowReadingAndWriting(const QString &path)
{
    constexpr auto needed = QFile::ReadOwner | QFile::WriteOwner;
    const auto permissions = QFile::permissions(path);
    if ((permissions & needed) != needed)
        QFile::setPermissions(path, permissions | needed);
}

bool replaceFile(const QString &path, const QByteArray &bytes)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
        return false;
    // commit() flushes as well but takes no notice of a failure.
    if (!flushToDisk(file.handle()) || !file.commit())
        return false;
    flushFolderOf(path);
    return true;
}

QString rejectedPath(const QString &path, int number)
{
    const QString name = path + QStringLiteral(".rejected");
    return number == 1 ? name : QStringLiteral("%1.%2").arg(name).arg(number);
}

// The file the name leads to, also through links whose end does not exist yet.
QString resolved(const QString &path)
{
    const QFileInfo file(path);
    const QString existing = file.canonicalFilePath();
    if (!existing.isEmpty())
        return existing;
    return file.isSymLink() ? file.symLinkTarget() : path;
}

} // namespace

JsonArrayFile::JsonArrayFile(const QString &folder, const QString &name)
    : m_path(QDir(folder).absoluteFilePath(name))
{
    QDir().mkpath(folder);
}

JsonObjectSequence JsonArrayFile::open() const
{
    const auto bytes = readFile(m_path);
    if (!bytes)
        throw Error(QStringLiteral("%1 cannot be read").arg(m_path));
    return JsonObjectSequence(*bytes);
}

QByteArray JsonArrayFile::emptyBuffer() const
{
    QByteArray buffer;
    // A save seldom adds more than one value to what the file holds.
    buffer.reserve(QFileInfo(m_path).size() + 4096);
    return buffer;
}

void JsonArrayFile::appendElement(QByteArray &elements, const QJsonObject &element)
{
    elements += elements.isEmpty() ? '[' : ',';
    // Line breaks within texts are escaped, so every one here is layout.
    const QByteArray text = QJsonDocument(element).toJson();
    qsizetype start = 0;
    for (qsizetype end = 0; (end = text.indexOf('\n', start)) >= 0; start = end + 1) {
        elements += "\n    ";
        elements.append(text.constData() + start, end - start);
    }
}

void JsonArrayFile::write(QByteArray elements)
{
    const QString target = resolved(m_path);
    QDir().mkpath(QFileInfo(m_path).path());
    if (QFileInfo::exists(target)) {
        allowReadingAndWriting(target);
        if (!m_isFileKnown && !keepUnreadFile())
            return;
        m_isFileKnown = true;
    }
    elements += elements.isEmpty() ? "[\n]\n" : "\n]\n";
    if (replaceFile(target, elements))
        m_isFileKnown = true;
}

bool JsonArrayFile::keepUnreadFile() const
{
    for (int number = 1;; ++number) {
        const QString kept = rejectedPath(m_path, number);
        // A second name for the same bytes needs no space, and is taken by nobody else meanwhile.
        if (::linkat(AT_FDCWD, QFile::encodeName(m_path).constData(), AT_FDCWD,
                     QFile::encodeName(kept).constData(), AT_SYMLINK_FOLLOW)
            == 0) {
            flushFolderOf(kept);
            return true;
        }
        if (errno == EEXIST)
            continue;
        // The file system has no hard links, or the file lies on another one.
        if (QFileInfo::exists(kept) || QFileInfo(kept).isSymLink())
            continue;
        const auto bytes = readFile(m_path);
        return bytes && replaceFile(kept, *bytes);
    }
}

} // namespace clipwren
