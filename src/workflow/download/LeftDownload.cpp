#include "workflow/download/LeftDownload.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <array>
#include <sys/xattr.h>

namespace clipwren::LeftDownload {
namespace {

constexpr const char *attribute = "user.clipwren.left";

QByteArray hashOf(const QString &text)
{
    constexpr qsizetype digits = 32;
    return QCryptographicHash::hash(text.toUtf8(), QCryptographicHash::Sha256)
        .toHex()
        .first(digits);
}

/// Tells a file that was left alone from one that was changed.
QByteArray identityOf(const QString &path)
{
    const QFileInfo file(path);
    return hashOf(QStringLiteral("%1/%2/%3")
                      .arg(file.fileName())
                      .arg(file.size())
                      .arg(file.lastModified().toMSecsSinceEpoch()));
}

/// Empty where there is none.
QByteArray markOf(const QString &path)
{
    std::array<char, 256> value{};
    const QByteArray name = QFile::encodeName(path);
#ifdef __APPLE__
    const ssize_t size =
        ::getxattr(name.constData(), attribute, value.data(), value.size(), 0, XATTR_NOFOLLOW);
#else
    const ssize_t size = ::lgetxattr(name.constData(), attribute, value.data(), value.size());
#endif
    return size > 0 ? QByteArray(value.data(), size) : QByteArray();
}

} // namespace

void mark(const QString &path, const QString &video, const QString &purpose)
{
    const QByteArray value = identityOf(path) + hashOf(video) + hashOf(purpose);
    const QByteArray name = QFile::encodeName(path);
    const auto size = static_cast<size_t>(value.size());
#ifdef __APPLE__
    ::setxattr(name.constData(), attribute, value.constData(), size, 0, XATTR_NOFOLLOW);
#else
    ::lsetxattr(name.constData(), attribute, value.constData(), size, 0);
#endif
}

void unmark(const QString &path)
{
#ifdef __APPLE__
    ::removexattr(QFile::encodeName(path).constData(), attribute, XATTR_NOFOLLOW);
#else
    ::lremovexattr(QFile::encodeName(path).constData(), attribute);
#endif
}

QStringList find(const QString &folder, const QString &video)
{
    QStringList paths;
    for (const QFileInfo &file : QDir(folder).entryInfoList(QDir::Files)) {
        if (isLeft(file.filePath(), video))
            paths.append(file.filePath());
    }
    return paths;
}

bool isLeft(const QString &path, const QString &video)
{
    const QByteArray mark = markOf(path);
    return !mark.isEmpty() && mark.startsWith(identityOf(path) + hashOf(video));
}

bool isLeftFor(const QString &path, const QString &video, const QString &purpose)
{
    return isLeft(path, video) && markOf(path).endsWith(hashOf(purpose));
}

} // namespace clipwren::LeftDownload
