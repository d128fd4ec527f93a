#include "platform/system/FileManager.h"

#include "core/process/FileDescriptor.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusUnixFileDescriptor>
#include <QDesktopServices>
#include <QFile>
#include <QFileInfo>
#include <QUrl>

#include <fcntl.h>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

QString nearestExisting(const QString &path)
{
    QFileInfo file(path);
    while (!file.exists() && !file.isRoot())
        file.setFile(file.absolutePath());
    return file.absoluteFilePath();
}

void openFolderOf(const QString &path)
{
    const QFileInfo file(path);
    QDesktopServices::openUrl(
        QUrl::fromLocalFile(file.isDir() ? file.absoluteFilePath() : file.absolutePath()));
}

QDBusMessage fileManagerCall(const QString &target)
{
    auto call = QDBusMessage::createMethodCall(u"org.freedesktop.FileManager1"_s,
                                               u"/org/freedesktop/FileManager1"_s,
                                               u"org.freedesktop.FileManager1"_s, u"ShowItems"_s);
    call << QStringList{QUrl::fromLocalFile(target).toString(QUrl::FullyEncoded)} << QString();
    return call;
}

QDBusMessage portalCall(const QString &target)
{
    auto call = QDBusMessage::createMethodCall(
        u"org.freedesktop.portal.Desktop"_s, u"/org/freedesktop/portal/desktop"_s,
        u"org.freedesktop.portal.OpenURI"_s, u"OpenDirectory"_s);
    const FileDescriptor file(::open(QFile::encodeName(target).constData(), O_PATH | O_CLOEXEC));
    call << QString() << QVariant::fromValue(QDBusUnixFileDescriptor(file.get())) << QVariantMap();
    return call;
}

} // namespace

bool isSandboxed()
{
    return QFile::exists(u"/.flatpak-info"_s);
}

void revealInFileManager(const QString &path, bool isSandboxed)
{
    const QString target = nearestExisting(path);
    const QDBusMessage call = isSandboxed ? portalCall(target) : fileManagerCall(target);
    auto *watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call));
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [watcher, target] {
        if (watcher->isError())
            openFolderOf(target);
        watcher->deleteLater();
    });
}

} // namespace clipwren
