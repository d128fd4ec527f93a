#include "platform/system/Notifier.h"

#include "core/Logging.h"
#include "platform/desktop/ApplicationId.h"
#include "platform/desktop/SessionBus.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

const auto service = u"org.freedesktop.Notifications"_s;
const auto path = u"/org/freedesktop/Notifications"_s;
const auto defaultAction = u"default"_s;
const auto revealAction = u"reveal"_s;
const auto openAction = u"open"_s;

QDBusMessage callOf(const QString &method)
{
    return QDBusMessage::createMethodCall(service, path, service, method);
}

} // namespace

void Notifier::listen()
{
    if (std::exchange(m_listens, true))
        return;
    QDBusConnection bus = QDBusConnection::sessionBus();
    // From whatever sender: to find out who owns the service's name would be to wait for the bus.
    bus.connect({}, path, service, u"ActionInvoked"_s, this, SLOT(actionInvoked(uint, QString)));
    bus.connect({}, path, service, u"ActivationToken"_s, this,
                SLOT(activationToken(uint, QString)));
    bus.connect({}, path, service, u"NotificationClosed"_s, this,
                SLOT(notificationClosed(uint, uint)));
}

void Notifier::notify(const Desktop::Notification &notification)
{
    if (!hasSessionBus())
        return;
    listen();
    auto *watcher = new QDBusPendingCallWatcher(
        QDBusConnection::sessionBus().asyncCall(callOf(u"GetCapabilities"_s)), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, notification] {
        const QDBusPendingReply<QStringList> reply = *watcher;
        watcher->deleteLater();
        if (reply.isError())
            qCInfo(desktopLog) << "No notification is shown:" << reply.error().message();
        else
            show(notification, reply.value());
    });
}

void Notifier::show(const Desktop::Notification &notification, const QStringList &capabilities)
{
    const bool hasFile = !notification.filePath.isEmpty();
    QStringList actions;
    if (capabilities.contains(u"actions"_s)) {
        actions << defaultAction << tr("Show Clipwren");
        if (hasFile)
            actions << revealAction << tr("Show in Folder") << openAction << tr("Open");
    }
    const bool readsMarkup = capabilities.contains(u"body-markup"_s);
    const QVariantMap hints{
        {u"desktop-entry"_s, QString(applicationId)},
        {u"category"_s, hasFile ? u"transfer.complete"_s : u"transfer.error"_s},
        // We play a sound of our own.
        {u"suppress-sound"_s, true},
    };
    constexpr uint replacesNone = 0;
    constexpr int untilTheDesktopHidesIt = -1;
    QDBusMessage call = callOf(u"Notify"_s);
    call << u"Clipwren"_s << replacesNone << QString(applicationId) << notification.summary
         << (readsMarkup ? notification.body.toHtmlEscaped() : notification.body) << actions
         << hints << untilTheDesktopHidesIt;
    auto *watcher =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, watcher, filePath = notification.filePath] {
                const QDBusPendingReply<uint> reply = *watcher;
                watcher->deleteLater();
                if (reply.isError())
                    qCInfo(desktopLog) << "No notification is shown:" << reply.error().message();
                else
                    m_shown.insert(reply.value(), {filePath, {}});
            });
}

void Notifier::actionInvoked(uint id, const QString &action)
{
    // All programs hear of all notifications.
    const auto shown = m_shown.constFind(id);
    if (shown == m_shown.constEnd())
        return;
    const auto [filePath, token] = *shown;
    if (action == revealAction)
        Q_EMIT revealRequested(filePath);
    else if (action == openAction)
        Q_EMIT openRequested(filePath);
    else if (action == defaultAction)
        Q_EMIT activated(token);
}

void Notifier::activationToken(uint id, const QString &token)
{
    if (const auto shown = m_shown.find(id); shown != m_shown.end())
        shown->activationToken = token;
}

void Notifier::notificationClosed(uint id, uint)
{
    m_shown.remove(id);
}

} // namespace clipwren
