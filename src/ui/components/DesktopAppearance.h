#pragma once

#include "core/tasks/BackgroundTask.h"

#include <QDBusVariant>
#include <QObject>
#include <QVariantMap>

#include <optional>

class QDBusConnection;

namespace clipwren {

/// What the desktop's settings say about colours, motion and the size of texts, read from its
/// portal.
///
/// Never blocks: until the answer comes, and where there is no portal, nothing is known, motion is
/// not reduced, contrast is not raised and texts are not scaled. User-interface thread only.
class DesktopAppearance : public QObject {
    Q_OBJECT
public:
    /// Asks the portal on the bus at `busAddress`; an empty one is the session's bus.
    explicit DesktopAppearance(const QString &busAddress = {}, QObject *parent = nullptr);
    ~DesktopAppearance() override;
    DesktopAppearance(const DesktopAppearance &) = delete;
    DesktopAppearance &operator=(const DesktopAppearance &) = delete;

    /// Absent while the desktop names no preference.
    std::optional<bool> prefersDark() const { return m_prefersDark; }
    bool reducedMotion() const { return m_reducedMotion.value_or(!m_animations); }
    bool highContrast() const { return m_highContrast || m_gnomeHighContrast; }
    /// By how much texts are to be larger than usual, from 0.75 to 2.
    double textScale() const;

Q_SIGNALS:
    void changed();

private Q_SLOTS:
    void settingChanged(const QString &group, const QString &key, const QDBusVariant &value);

private: // NOLINT(readability-redundant-access-specifiers): no slots
    void ask(QDBusConnection &bus);
    void take(const QString &group, const QString &key, const QVariant &value);

    QString m_connectionName;
    BackgroundTask m_connecting;
    std::optional<bool> m_prefersDark;
    std::optional<bool> m_reducedMotion;
    bool m_animations = true;
    bool m_highContrast = false;
    bool m_gnomeHighContrast = false;
    double m_textScale = 1;
};

} // namespace clipwren
