#pragma once

#include "platform/desktop/Desktop.h"

#include <QHash>
#include <QObject>
#include <QStringList>

namespace clipwren {

/// Shows notifications of the desktop and tells what the user chose on them. Does not wait for the
/// desktop, and is silent where it shows none.
class Notifier : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    void notify(const Desktop::Notification &notification);

Q_SIGNALS:
    void revealRequested(const QString &filePath);
    void openRequested(const QString &filePath);
    /// The notification itself was chosen. The token lets the window take the focus; it may be
    /// empty.
    void activated(const QString &activationToken);

private:
    Q_SLOT void actionInvoked(uint id, const QString &action);
    Q_SLOT void activationToken(uint id, const QString &token);
    Q_SLOT void notificationClosed(uint id, uint reason);
    void listen();
    void show(const Desktop::Notification &notification, const QStringList &capabilities);

    struct Shown {
        QString filePath;
        QString activationToken;
    };
    QHash<uint, Shown> m_shown;
    bool m_listens = false;
};

} // namespace clipwren
