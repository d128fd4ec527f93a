#include "platform/system/SleepInhibitor.h"

#include "core/Logging.h"
#include "platform/desktop/SessionBus.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

const auto portalService = u"org.freedesktop.portal.Desktop"_s;

/// Shown by the desktop.
QString reason()
{
    return SleepInhibitor::tr("A video is being downloaded or converted");
}

} // namespace

SleepInhibitor::SleepInhibitor()
{
    if (hasSessionBus())
        askPortal();
    else
        askLogind();
}

SleepInhibitor::~SleepInhibitor()
{
    if (m_portalRequest.isEmpty())
        return;
    QDBusConnection::sessionBus().send(QDBusMessage::createMethodCall(
        portalService, m_portalRequest, u"org.freedesktop.portal.Request"_s, u"Close"_s));
}

void SleepInhibitor::askPortal()
{
    constexpr uint suspend = 4;
    QDBusConnection bus = QDBusConnection::sessionBus();
    // Choosing the request's path lets us end it before the answer has arrived.
    static int count = 0;
    const QString token = u"clipwren%1"_s.arg(++count);
    const QString sender = bus.baseService().mid(1).replace(u'.', u'_');
    m_portalRequest = u"/org/freedesktop/portal/desktop/request/%1/%2"_s.arg(sender, token);

    auto call = QDBusMessage::createMethodCall(portalService, u"/org/freedesktop/portal/desktop"_s,
                                               u"org.freedesktop.portal.Inhibit"_s, u"Inhibit"_s);
    call << QString() << suspend
         << QVariantMap{{u"handle_token"_s, token}, {u"reason"_s, reason()}};
    auto *watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        if (!watcher->isError())
            return;
        m_portalRequest.clear();
        askLogind();
    });
}

void SleepInhibitor::askLogind()
{
    auto call =
        QDBusMessage::createMethodCall(u"org.freedesktop.login1"_s, u"/org/freedesktop/login1"_s,
                                       u"org.freedesktop.login1.Manager"_s, u"Inhibit"_s);
    call << u"sleep:idle"_s << u"Clipwren"_s << reason() << u"block"_s;
    auto *watcher = new QDBusPendingCallWatcher(QDBusConnection::systemBus().asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<QDBusUnixFileDescriptor> reply = *watcher;
        watcher->deleteLater();
        if (reply.isError())
            qCInfo(desktopLog) << "Cannot keep the machine awake:" << reply.error().message();
        else
            m_logindLock = reply.value();
    });
}

} // namespace clipwren
