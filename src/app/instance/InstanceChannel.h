#pragma once

#include "app/instance/InstanceMessage.h"
#include "core/process/FileDescriptor.h"

#include <QObject>

#include <chrono>
#include <cstdint>
#include <functional>
#include <stop_token>

class QSocketNotifier;

namespace clipwren {

/// Receives what later starts of the application have to say, at a socket beside the lists: whoever
/// finds these lists locked finds their holder too, whatever its environment. Only the user's own
/// processes can reach it.
class InstanceServer : public QObject {
    Q_OBJECT

public:
    /// Deals with a message. False when that failed, which the sender is told.
    using Handler = std::function<bool(const InstanceMessage &)>;

    /// Call only as the holder of the folder's `LibraryLock`: the socket may be left over from a
    /// process that is gone. A sender that is not done after `patience` is sent away.
    InstanceServer(const QString &libraryFolder, Handler handler,
                   std::chrono::milliseconds patience = std::chrono::seconds(5));
    ~InstanceServer() override;
    InstanceServer(const InstanceServer &) = delete;
    InstanceServer &operator=(const InstanceServer &) = delete;

private:
    class Connection;

    void accept();

    Handler m_handler;
    std::chrono::milliseconds m_patience;
    FileDescriptor m_folder;
    FileDescriptor m_socket;
    QSocketNotifier *m_callers = nullptr; // null when it cannot listen
    int m_connectionCount = 0;
};

enum class InstanceAnswer : std::uint8_t {
    None, ///< nobody listens, or answered in time
    Done,
    Failed, ///< the message arrived, but could not be dealt with
};

/// Hands a message to the application that has the lists of this folder open, and waits until it
/// has been dealt with. Blocks; a stop ends it with `None`.
InstanceAnswer sendToRunningInstance(const InstanceMessage &message, const QString &libraryFolder,
                                     std::chrono::milliseconds patience,
                                     const std::stop_token &stop = {});

} // namespace clipwren
