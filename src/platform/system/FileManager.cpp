#include "platform/system/FileManager.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

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

} // namespace

void revealInFileManager(const QString &path)
{
    const QString target = nearestExisting(path);
    QDBusMessage call = QDBusMessage::createMethodCall(
        u"org.freedesktop.FileManager1"_s, u"/org/freedesktop/FileManager1"_s,
        u"org.freedesktop.FileManager1"_s, u"ShowItems"_s);
    call << QStringList{QUrl::fromLocalFile(target).toString(QUrl::FullyEncoded)} << QString();

    auto *watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call));
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [watcher, target] {
        if (watcher->isError())
            openFolderOf(target);
        watcher->deleteLater();
    });
}

} // namespace clipwren
