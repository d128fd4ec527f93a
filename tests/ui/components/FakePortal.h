#pragma once

#include <QDBusConnection>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QMap>
#include <QObject>
#include <QProcess>
#include <QVariantMap>

#include <gtest/gtest.h>

namespace clipwren::test {

using namespace Qt::StringLiterals;

using PortalSettings = QMap<QString, QVariantMap>;

/// A bus of its own with a desktop portal whose settings a test chooses.
class FakePortal : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")
public:
    explicit FakePortal(const PortalSettings &settings) : m_settings(settings)
    {
        qDBusRegisterMetaType<PortalSettings>();
        m_daemon.start(u"dbus-daemon"_s,
                       {u"--session"_s, u"--nofork"_s, u"--nopidfile"_s, u"--print-address"_s});
        EXPECT_TRUE(m_daemon.waitForReadyRead(10'000));
        m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
        auto bus = QDBusConnection::connectToBus(m_address, m_address);
        EXPECT_TRUE(bus.registerObject(u"/org/freedesktop/portal/desktop"_s, this,
                                       QDBusConnection::ExportAllSlots
                                           | QDBusConnection::ExportAllSignals));
        EXPECT_TRUE(bus.registerService(u"org.freedesktop.portal.Desktop"_s));
    }
    ~FakePortal() override
    {
        QDBusConnection::disconnectFromBus(m_address);
        m_daemon.terminate();
        m_daemon.waitForFinished();
    }

    QString busAddress() const { return m_address; }
    /// As when the user changes a setting.
    void change(const QString &group, const QString &key, const QVariant &value)
    {
        Q_EMIT SettingChanged(group, key, QDBusVariant(value));
    }

public Q_SLOTS:
    QMap<QString, QVariantMap> ReadAll(const QStringList &groups)
    {
        PortalSettings asked;
        for (const QString &group : groups) {
            if (m_settings.contains(group))
                asked[group] = m_settings[group];
        }
        return asked;
    }

Q_SIGNALS:
    void SettingChanged(const QString &group, const QString &key, const QDBusVariant &value);

private:
    QProcess m_daemon;
    QString m_address;
    PortalSettings m_settings;
};

} // namespace clipwren::test
