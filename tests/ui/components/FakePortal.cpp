#include "FakePortal.h"

#include <QDBusConnection>
#include <QDBusMetaType>

#include <gtest/gtest.h>

namespace clipwren::test {

namespace {

const auto connectionName = QStringLiteral("fake-portal");

}

FakePortal::FakePortal(const PortalSettings &settings) : m_settings(settings)
{
    qDBusRegisterMetaType<PortalSettings>();
    m_daemon.start(QStringLiteral("dbus-daemon"),
                   {QStringLiteral("--session"), QStringLiteral("--nofork"),
                    QStringLiteral("--nopidfile"), QStringLiteral("--print-address")});
    EXPECT_TRUE(m_daemon.waitForReadyRead(10'000));
    m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
    auto bus = QDBusConnection::connectToBus(m_address, connectionName);
    EXPECT_TRUE(
        bus.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), this,
                           QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals));
    EXPECT_TRUE(bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop")));
}

FakePortal::~FakePortal()
{
    QDBusConnection::disconnectFromBus(connectionName);
    m_daemon.terminate();
    m_daemon.waitForFinished();
}

PortalSettings FakePortal::ReadAll(const QStringList &groups)
{
    PortalSettings asked;
    for (const QString &group : groups) {
        if (m_settings.contains(group))
            asked[group] = m_settings[group];
    }
    return asked;
}

void FakePortal::change(const QString &group, const QString &key, const QVariant &value)
{
    Q_EMIT SettingChanged(group, key, QDBusVariant(value));
}

} // namespace clipwren::test
