#include "workflow/download/LeftoverDownload.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <array>
#include <sys/xattr.h>

namespace clipwren::LeftoverDownload {
namespace {

using namespace Qt::StringLiterals;

constexpr const char *attribute = "user.clipwren.left";

QByteArray hashOf(const QString &text)
{
    constexpr qsizetype digits = 32;
    return QCryptographicHash::hash(text.toUtf8(), QCryptographicHash::Sha256)
        .toHex()
        .first(digits);
}

/// Tells an unchanged file from one that was changed or renamed.
QByteArray identityOf(const QString &path)
{
    const QFileInfo file(path);
    return hashOf(u"%1/%2/%3"_s.arg(file.fileName())
                      .arg(file.size())
                      .arg(file.lastModified().toMSecsSinceEpoch()));
}

/// Empty where there is none.
QByteArray markOf(const QString &path)
{
    std::array<char, 256> value{};
    const QByteArray name = QFile::encodeName(path);
    const ssize_t size = ::lgetxattr(name.constData(), attribute, value.data(), value.size());
    return size > 0 ? QByteArray(value.data(), size) : QByteArray();
}

} // namespace

void mark(const QString &path, const QString &video, const QString &purpose)
{
    const QByteArray value = identityOf(path) + hashOf(video) + hashOf(purpose);
    const QByteArray name = QFile::encodeName(path);
    const auto size = static_cast<size_t>(value.size());
    ::lsetxattr(name.constData(), attribute, value.constData(), size, 0);
}

void unmark(const QString &path)
{
    ::lremovexattr(QFile::encodeName(path).constData(), attribute);
}

QStringList find(const QString &folder, const QString &video)
{
    QStringList paths;
    for (const QFileInfo &file : QDir(folder).entryInfoList(QDir::Files)) {
        if (isLeftover(file.filePath(), video))
            paths.append(file.filePath());
    }
    return paths;
}

bool isLeftover(const QString &path, const QString &video)
{
    const QByteArray mark = markOf(path);
    return !mark.isEmpty() && mark.startsWith(identityOf(path) + hashOf(video));
}

bool isLeftoverFor(const QString &path, const QString &video, const QString &purpose)
{
    return isLeftover(path, video) && markOf(path).endsWith(hashOf(purpose));
}

} // namespace clipwren::LeftoverDownload
