#pragma once

#include "core/tasks/BackgroundTask.h"
#include "platform/media/MediaPlayer.h"

#include <QString>
#include <QStringList>

#include <chrono>
#include <cstdint>
#include <memory>

namespace clipwren {

class PlayerBackend;

/// Makes players, from a module that is loaded when the first one is needed: the libraries behind
/// it cost more start-up and memory than all the rest.
///
/// Used on the user-interface thread. Must outlive its players.
class PlayerModule {
public:
    /// Looks for the module in these folders, in this order. A stream from the network that is not
    /// ready after `networkTimeout` fails.
    explicit PlayerModule(QStringList folders = defaultFolders(),
                          std::chrono::milliseconds networkTimeout = std::chrono::seconds(20));
    /// Gives the players that still end in the background a moment to do so.
    ~PlayerModule();
    PlayerModule(const PlayerModule &) = delete;
    PlayerModule &operator=(const PlayerModule &) = delete;

    /// Beside the executable, and where the module is installed and built, as seen from there.
    static QStringList defaultFolders();

    /// Loads the module in the background, once, so that the first player comes at once.
    void warmUp();

    enum class Purpose : std::uint8_t {
        Playing,
        Pictures, ///< single pictures made in the background: no sound, low priority
    };
    /// Never null: without the module, a player that fails each load with a sentence.
    std::unique_ptr<MediaPlayer> makePlayer(Purpose purpose = Purpose::Playing);

    /// Players end in the background. False when the time passed before all had ended.
    bool waitForEndedPlayers(std::chrono::milliseconds timeout);

private:
    /// Of the module's file; empty where there is none.
    QString path() const;
    /// Null when the module cannot be used; `m_failure` then says why.
    PlayerBackend *backend();

    QStringList m_folders;
    std::chrono::milliseconds m_networkTimeout;
    PlayerBackend *m_backend = nullptr;
    QString m_failure;
    bool m_isWarm = false; ///< the module is loaded, or on its way
    BackgroundTask m_warmUp;
};

} // namespace clipwren
