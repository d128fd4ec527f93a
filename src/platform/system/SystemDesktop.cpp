#include "platform/system/SystemDesktop.h"

#include "platform/system/FileManager.h"

#include <QAccessible>
#include <QClipboard>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QWindow>

namespace clipwren {

using namespace Qt::StringLiterals;

SystemDesktop::SystemDesktop()
{
    QObject::connect(&m_notifier, &Notifier::revealRequested,
                     [this](const QString &path) { reveal(path); });
    QObject::connect(&m_notifier, &Notifier::openRequested,
                     [this](const QString &path) { openFile(path); });
}

void SystemDesktop::reveal(const QString &path)
{
    revealInFileManager(path);
}

void SystemDesktop::openFile(const QString &path)
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

void SystemDesktop::openAddress(const QUrl &address)
{
    QDesktopServices::openUrl(address);
}

QString SystemDesktop::clipboardText() const
{
    return QGuiApplication::clipboard()->text();
}

void SystemDesktop::setClipboardText(const QString &text)
{
    QGuiApplication::clipboard()->setText(text);
}

void SystemDesktop::playCompletionSound()
{
    m_sound.play();
}

std::unique_ptr<Desktop::Activity> SystemDesktop::beginActivity()
{
    return m_activities.begin();
}

void SystemDesktop::notify(const Notification &notification)
{
    if (QGuiApplication::applicationState() == Qt::ApplicationActive)
        announce(tr("%1: %2").arg(notification.summary, notification.body));
    else
        m_notifier.notify(notification);
}

void SystemDesktop::announce(const QString &text)
{
    const QWindow *const window = QGuiApplication::focusWindow();
    QAccessibleInterface *const source =
        window && QAccessible::isActive() ? window->accessibleRoot() : nullptr;
    if (!source || text.isEmpty())
        return;
    // Qt 6.4 has no event for this. It sends all others over the connection of this name, from
    // objects of these paths.
    const auto path = u"/org/a11y/atspi/accessible/%1"_s.arg(QAccessible::uniqueId(source));
    QDBusMessage event =
        QDBusMessage::createSignal(path, u"org.a11y.atspi.Event.Object"_s, u"Announcement"_s);
    event << QString() << 0 << 0 << QVariant::fromValue(QDBusVariant(text)) << QVariantMap();
    QDBusConnection(u"a11y"_s).send(event);
}

} // namespace clipwren
