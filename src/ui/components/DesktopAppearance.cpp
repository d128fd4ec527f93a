#include "ui/components/DesktopAppearance.h"

#include "core/Logging.h"
#include "platform/desktop/SessionBus.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QGuiApplication>

#include <cmath>

using Settings = QMap<QString, QVariantMap>;

namespace clipwren {

using namespace Qt::StringLiterals;

namespace {

const auto service = u"org.freedesktop.portal.Desktop"_s;
const auto path = u"/org/freedesktop/portal/desktop"_s;
const auto interface = u"org.freedesktop.portal.Settings"_s;
const auto appearanceGroup = u"org.freedesktop.appearance"_s;
const auto gnomeGroup = u"org.gnome.desktop.interface"_s;
const auto gnomeAccessibilityGroup = u"org.gnome.desktop.a11y.interface"_s;

} // namespace

DesktopAppearance::DesktopAppearance(const QString &busAddress, QObject *parent) : QObject(parent)
{
    qDBusRegisterMetaType<Settings>();
    // Else the slot is only found once Qt has come across the type by itself.
    qRegisterMetaType<QDBusVariant>();
    if (busAddress.isEmpty() && !hasSessionBus())
        return;
    if (!busAddress.isEmpty())
        m_connectionName = u"clipwren-appearance"_s;
    // Connecting waits for the bus to answer, so it happens beside the start of the window.
    m_connecting = BackgroundTask::start(
        [busAddress, name = m_connectionName](const std::stop_token &,
                                              const BackgroundTask::Post &) {
            return busAddress.isEmpty() ? QDBusConnection::sessionBus()
                                        : QDBusConnection::connectToBus(busAddress, name);
        },
        [this](QDBusConnection bus) { ask(bus); },
        [](const std::exception_ptr &) {
            qCInfo(desktopLog) << "Cannot connect to the session bus";
        });
}

DesktopAppearance::~DesktopAppearance()
{
    if (!m_connectionName.isEmpty())
        QDBusConnection::disconnectFromBus(m_connectionName);
}

void DesktopAppearance::ask(QDBusConnection &bus)
{
    if (!bus.isConnected()) {
        qCInfo(desktopLog) << "No session bus:" << bus.lastError().message();
        return;
    }
    // From whatever sender: to find out who owns the portal's name would be to wait for the bus.
    bus.connect(QString(), path, interface, u"SettingChanged"_s, this,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    auto message = QDBusMessage::createMethodCall(service, path, interface, u"ReadAll"_s);
    message << QStringList{appearanceGroup, gnomeGroup, gnomeAccessibilityGroup};
    auto *watcher = new QDBusPendingCallWatcher(bus.asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<Settings> reply = *watcher;
        watcher->deleteLater();
        if (reply.isError()) {
            qCInfo(desktopLog) << "The desktop does not tell its appearance:"
                               << reply.error().message();
            return;
        }
        const Settings settings = reply.value();
        for (auto group = settings.begin(); group != settings.end(); ++group) {
            for (auto entry = group->begin(); entry != group->end(); ++entry)
                take(group.key(), entry.key(), entry.value());
        }
        Q_EMIT changed();
    });
}

void DesktopAppearance::settingChanged(const QString &group, const QString &key,
                                       const QDBusVariant &value)
{
    take(group, key, value.variant());
    Q_EMIT changed();
}

void DesktopAppearance::take(const QString &group, const QString &key, const QVariant &value)
{
    if (group == appearanceGroup && key == u"color-scheme"_s) {
        const uint scheme = value.toUInt();
        m_prefersDark = scheme == 1 || scheme == 2 ? std::optional(scheme == 1) : std::nullopt;
    } else if (group == appearanceGroup && key == u"reduced-motion"_s) {
        m_reducedMotion = value.toUInt() == 1;
    } else if (group == appearanceGroup && key == u"contrast"_s) {
        m_highContrast = value.toUInt() == 1;
    } else if (group == gnomeAccessibilityGroup && key == u"high-contrast"_s) {
        m_gnomeHighContrast = value.toBool();
    } else if (group == gnomeGroup && key == u"enable-animations"_s) {
        m_animations = value.toBool();
    } else if (group == gnomeGroup && key == u"text-scaling-factor"_s) {
        const double scale = value.toDouble();
        m_textScale = std::isfinite(scale) && scale > 0 ? std::clamp(scale, 0.75, 2.0) : 1;
    }
}

double DesktopAppearance::textScale() const
{
    // X11 desktops put the factor into the screen's resolution, too, and Qt then scales the window.
    const bool isApplied =
        QGuiApplication::platformName() == "xcb"_L1 && qGuiApp->devicePixelRatio() > 1;
    return isApplied ? 1 : m_textScale;
}

} // namespace clipwren
