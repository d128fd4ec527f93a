#pragma once

#include "platform/media/MediaPlayer.h"

#include <QObject>
#include <QString>
#include <QUrl>

#include <memory>
#include <optional>

namespace clipwren {

/// Plays the preview stream of the video that is being looked at.
///
/// Times are seconds. Used on the user-interface thread only. A stream that was replaced or
/// unloaded no longer changes anything here.
class PreviewPlayerController : public QObject {
    Q_OBJECT

public:
    explicit PreviewPlayerController(MediaPlayerFactory makePlayer, QObject *parent = nullptr);
    ~PreviewPlayerController() override;

    /// Replaces the stream. The error of an earlier one stays until this one is ready or failed.
    void load(const QUrl &url);
    /// Stops and releases the stream, and keeps `loadError()`.
    void unload();
    /// Pauses, and ends a range that plays or is about to.
    void pause();
    /// Pauses on the frame of a time and ends a range that plays. Times below 0 mean 0; a time
    /// that is no number is ignored.
    void seek(double to);
    /// Plays from `start` and pauses at `end`, for at least 0.05 s. An infinite end plays to the
    /// end of the stream; other times that are no numbers are ignored.
    void playRange(double start, double end);
    /// Ends a range that plays or is about to: what plays goes on beyond its end.
    void endRange();

    /// Absent while nothing is loaded and after a failure. One that was replaced lives on until
    /// control is back in the event loop, so that views can release it on `changed()`.
    MediaPlayer *player() const { return m_player.get(); }
    bool isPlaying() const { return m_isPlaying; }
    bool isLoading() const { return m_isLoading; }
    std::optional<QString> loadError() const { return m_loadError; }

Q_SIGNALS:
    void changed();

private:
    void followStatus();
    void releasePlayer();

    MediaPlayerFactory m_makePlayer;
    std::unique_ptr<MediaPlayer> m_player;
    bool m_isPlaying = false;
    bool m_isLoading = false;
    std::optional<QString> m_loadError;
    // Counts what ends a range, so that a range whose first seek is still on its way is not begun.
    quint64 m_rangeNumber = 0;
};

} // namespace clipwren
