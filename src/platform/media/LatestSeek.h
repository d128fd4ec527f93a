#pragma once

#include "platform/media/MediaPlayer.h"

#include <functional>
#include <optional>

namespace clipwren {

/// The seeks of one player: one runs at a time, and only the newest target waits behind it.
///
/// A dragged handle asks for far more positions than a player can show; this way the picture
/// follows at the player's pace and ends where the handle was let go. Used on one thread.
class LatestSeek {
public:
    /// `start` begins a seek; its end is told with `finish()`, which `start` may call itself.
    explicit LatestSeek(std::function<void(double seconds)> start);

    /// Makes the seek now, or when the running one ends, or when seeking is allowed. A target that
    /// waited before is told that it did not finish.
    void request(double seconds, MediaPlayer::SeekDone done);
    /// The running seek ended.
    void finish(bool finished);
    bool isRunning() const { return m_running.has_value(); }

    /// Allows seeks, and makes the one that waits.
    void open();
    /// Gives up every seek and keeps later ones waiting until `open()`.
    void close();

private:
    struct Target {
        double seconds = 0;
        MediaPlayer::SeekDone done;
    };

    void startWaiting();

    std::function<void(double seconds)> m_start;
    std::optional<Target> m_running;
    std::optional<Target> m_waiting;
    bool m_open = false;
};

} // namespace clipwren
