#pragma once

#include "core/library/DownloadRecord.h"
#include "core/process/FileDescriptor.h"

#include <QByteArray>
#include <QLocalServer>
#include <QString>

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <stop_token>

namespace clipwren {

/// What a second start tells the application that runs.
struct InstanceMessage {
    /// Bring the window to the front, and look this address up unless it is empty.
    struct Show {
        QString address = {};
        bool newDownload = false; ///< without an address: leave the selected record
        QString activationToken = {}; ///< of the desktop's focus rules; may be empty
    };
    /// A file was saved from the command line.
    struct Saved {
        DownloadRecord record;
        QString historyTitle; ///< may be empty
    };

    std::optional<Show> show;
    std::optional<Saved> saved;

    QByteArray toJson() const;
    /// Throws `DecodingError`.
    static InstanceMessage fromJson(const QByteArray &utf8);
};

/// Receives what later starts of the application have to say, at a socket beside the lists: whoever
/// finds these lists locked finds their holder too, whatever its environment. Only the user's own
/// processes can reach it.
class InstanceServer : public QObject {
public:
    /// Deals with a message. False when that failed, which the sender is told.
    using Handler = std::function<bool(const InstanceMessage &)>;

    /// Call only as the holder of the folder's `LibraryLock`: the socket may be left over from a
    /// process that is gone. A sender that is not done after `patience` is sent away.
    InstanceServer(const QString &libraryFolder, Handler handler,
                   std::chrono::milliseconds patience = std::chrono::seconds(5));

private:
    void accept();
    void receive(QLocalSocket &caller);

    Handler m_handler;
    std::chrono::milliseconds m_patience;
    FileDescriptor m_folder; // holds the socket's address until the server is gone
    QLocalServer m_server;
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
