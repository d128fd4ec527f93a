#pragma once

#include <QDBusContext>
#include <QDBusVariant>
#include <QMap>
#include <QObject>
#include <QProcess>
#include <QVariantMap>

namespace clipwren::test {

using PortalSettings = QMap<QString, QVariantMap>;

/// A bus of its own with a desktop portal whose settings a test chooses.
class FakePortal : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")
public:
    explicit FakePortal(const PortalSettings &settings);
    ~FakePortal() override;

    QString busAddress() const { return m_address; }
    /// As when the user changes a setting.
    void change(const QString &group, const QString &key, const QVariant &value);

public Q_SLOTS:
    QMap<QString, QVariantMap> ReadAll(const QStringList &groups);

Q_SIGNALS:
    void SettingChanged(const QString &group, const QString &key, const QDBusVariant &value);

private:
    QProcess m_daemon;
    QString m_address;
    PortalSettings m_settings;
};

} // namespace clipwren::test
