#pragma once

#include "app/instance/InstanceMessage.h"
#include "core/process/FileDescriptor.h"

#include <QByteArray>
#include <QObject>

#include <chrono>

namespace clipwren {

/// Receives what later starts of the application have to say. Only the user's own processes can
/// reach it.
class InstanceServer : public QObject {
    Q_OBJECT

public:
    /// `socketPath` may be left over from a process that is gone. Call only as the holder of the
    /// `LibraryLock`.
    explicit InstanceServer(const QString &socketPath = defaultSocketPath());
    ~InstanceServer() override;
    InstanceServer(const InstanceServer &) = delete;
    InstanceServer &operator=(const InstanceServer &) = delete;

    static QString defaultSocketPath();

Q_SIGNALS:
    void received(const InstanceMessage &message);

private:
    class Connection;

    void accept();

    QByteArray m_path;
    FileDescriptor m_socket;
};

/// Hands a message to the application that runs and waits until it has been dealt with. False
/// when nobody answered in time. Blocks.
bool sendToRunningInstance(const InstanceMessage &message,
                           const QString &socketPath = InstanceServer::defaultSocketPath(),
                           std::chrono::milliseconds patience = std::chrono::seconds(5));

} // namespace clipwren
