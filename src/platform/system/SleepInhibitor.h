#pragma once

#include <QDBusUnixFileDescriptor>
#include <QObject>
#include <QString>

namespace clipwren {

/// Keeps the machine from going to sleep by itself for as long as this lives: by the desktop's
/// portal or, where there is none, by logind. Both take note of the end of the process, too.
/// Nothing here waits for them.
class SleepInhibitor : public QObject {
    Q_OBJECT

public:
    SleepInhibitor();
    ~SleepInhibitor() override;
    SleepInhibitor(const SleepInhibitor &) = delete;
    SleepInhibitor &operator=(const SleepInhibitor &) = delete;

private:
    void askPortal();
    void askLogind();

    QString m_portalRequest; // its object path; empty when the portal was not asked
    QDBusUnixFileDescriptor m_logindLock;
};

} // namespace clipwren
