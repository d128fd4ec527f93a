#pragma once

#include "platform/media/MediaPlayer.h"

#include <QtGlobal>

#include <chrono>
#include <memory>

class QWidget;

namespace clipwren {

/// What the player module gives. Used on the user-interface thread.
class PlayerBackend {
public:
    virtual ~PlayerBackend() = default;

    /// A server that sends nothing for `networkTimeout` fails the stream. Throws `Error` with a
    /// sentence for the user when the machine cannot play anything.
    virtual std::unique_ptr<MediaPlayer> makePlayer(std::chrono::milliseconds networkTimeout) = 0;
    /// A widget that shows the pictures of a player that this backend made, fitted into a black
    /// rectangle; null for a player of somebody else. At most one surface shows a player at a
    /// time. Either may be destroyed first.
    virtual QWidget *makeSurface(MediaPlayer &player, QWidget *parent) = 0;
};

} // namespace clipwren

/// The one function that the module exports; the backend lives as long as the process. The number
/// in the name counts changes of these interfaces, so that a module of another build is not
/// taken for ours.
extern "C" Q_DECL_EXPORT clipwren::PlayerBackend *clipwrenPlayerBackend1();
