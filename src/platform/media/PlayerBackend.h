#pragma once

#include "platform/media/MediaPlayer.h"

#include <QtGlobal>

#include <chrono>
#include <memory>

namespace clipwren {

struct PlayerOptions {
    /// A server that sends nothing for so long fails the stream, and so does a stream from the
    /// network that is not ready after this time.
    std::chrono::milliseconds networkTimeout;
    /// For single pictures made in the background: no sound, little read ahead, low priority.
    bool background = false;
};

/// What the player module gives. Used on the user-interface thread.
class PlayerBackend {
public:
    virtual ~PlayerBackend() = default;

    /// Throws `Error` with a sentence for the user when the machine cannot play anything.
    virtual std::unique_ptr<MediaPlayer> makePlayer(const PlayerOptions &options) = 0;
    /// Players end in the background. False when the time passed before all had ended.
    virtual bool waitForEndedPlayers(std::chrono::milliseconds timeout) = 0;
};

} // namespace clipwren

/// The one function that the module exports; the backend lives as long as the process. The number
/// in the name counts changes of these interfaces, so that a module of another build is not
/// taken for ours.
extern "C" Q_DECL_EXPORT clipwren::PlayerBackend *clipwrenPlayerBackend2();
