#include "core/library/JsonArrayFile.h"

#include "core/Logging.h"
#include "core/library/LibraryFolder.h"
#include "core/library/ReplaceFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace clipwren {

namespace {

using namespace Qt::StringLiterals;

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

QString rejectedPath(const QString &path, int number)
{
    const QString name = path + u".rejected"_s;
    return number == 1 ? name : u"%1.%2"_s.arg(name).arg(number);
}

// Resolves symbolic links, also dangling ones.
QString resolved(const QString &path)
{
    const QFileInfo file(path);
    QString existing = file.canonicalFilePath();
    if (!existing.isEmpty())
        return existing;
    return file.isSymLink() ? file.symLinkTarget() : path;
}

} // namespace

JsonArrayFile::JsonArrayFile(const QString &folder, const QString &name)
{
    if (folder.isEmpty())
        return;
    m_path = QDir(folder).absoluteFilePath(name);
    QDir().mkpath(folder);
}

JsonObjectSequence JsonArrayFile::open() const
{
    const auto bytes = readFile(m_path);
    if (!bytes)
        throw Error(QCoreApplication::translate("Error", "%1 cannot be read").arg(m_path));
    // Others could read what earlier versions wrote.
    constexpr auto owner = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
    QFile::setPermissions(m_path, QFile::permissions(m_path) & owner);
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

void JsonArrayFile::logUnread(const Error &error) const
{
    if (QFileInfo::exists(m_path))
        qCWarning(libraryLog) << m_path << "is not used:" << error.errorDescription();
}

std::optional<QString> JsonArrayFile::write(QByteArray elements)
{
    if (m_path.isEmpty())
        return std::nullopt;
    elements += elements.isEmpty() ? "[\n]\n" : "\n]\n";
    try {
        createFolder(QFileInfo(m_path).path());
        const QString target = resolved(m_path);
        if (!m_isFileKnown)
            m_isFileKnown = keepUnreadFile(target);
        replaceFile(target, elements);
        m_isFileKnown = true;
    } catch (const std::exception &error) {
        return errorDescription(error);
    }
    return std::nullopt;
}

bool JsonArrayFile::keepUnreadFile(const QString &target) const
{
    // The kept file must be readable for its user, and for nobody else.
    if (QFileInfo(target).isFile())
        QFile::setPermissions(target, QFile::ReadOwner | QFile::WriteOwner);
    for (int number = 1;; ++number) {
        const QString kept = rejectedPath(m_path, number);
        // A hard link needs no space, and fails when another process has taken the name.
        if (::linkat(AT_FDCWD, QFile::encodeName(target).constData(), AT_FDCWD,
                     QFile::encodeName(kept).constData(), 0)
            == 0) {
            flushFolderOf(kept);
            return true;
        }
        if (errno == ENOENT)
            return false;
        if (errno == EEXIST)
            continue;
        // The file system has no hard links, or the file lies on another one.
        if (QFileInfo::exists(kept) || QFileInfo(kept).isSymLink())
            continue;
        const auto bytes = readFile(target);
        if (!bytes)
            throw Error(QCoreApplication::translate("Error", "%1 can neither be read nor kept")
                            .arg(target));
        replaceFile(kept, *bytes);
        return true;
    }
}

} // namespace clipwren
