#pragma once

#include <QObject>
#include <QUrl>

#include <functional>
#include <memory>
#include <optional>

namespace clipwren {

class VideoOutput;

/// Plays one stream or file at a time.
///
/// Times are seconds from the start of the stream. Everything is called, and every signal and
/// callback comes, on the user-interface thread; a signal may come while the call that caused it
/// still runs. Destroying the player stops it at once and drops what it would still report.
class MediaPlayer : public QObject {
    Q_OBJECT

public:
    enum class Status {
        Empty, ///< nothing was loaded
        Loading,
        Ready, ///< opened; pictures can be shown and seeks are exact
        Failed, ///< cannot be played, `failure()` says why
    };
    /// Told true once the picture of the wanted time is there, false when the seek was given up
    /// for a newer one or could not be made. Called once.
    using SeekDone = std::function<void(bool finished)>;

    using QObject::QObject;

    /// Replaces the stream, paused at its start. What the replaced one would still report is
    /// dropped, and its end time and seeks are forgotten.
    virtual void load(const QUrl &url) = 0;
    virtual QUrl url() const = 0;
    virtual Status status() const = 0;
    /// One sentence for the user. Empty unless the status is `Failed`.
    virtual QString failure() const = 0;

    /// Starts as soon as the stream is ready. At the end of the stream it starts again from the
    /// beginning.
    virtual void play() = 0;
    virtual void pause() = 0;
    /// True between `play()` and the next pause, also while the stream is waited for.
    virtual bool isPlaying() const = 0;

    /// Jumps to the first frame at or after a time, the one with which a clip cut there begins.
    /// Times below 0 mean 0, times past the end the last frame. Asked for before the stream is
    /// ready, it is made then. One seek runs at a time and only the newest target waits behind
    /// it, so the last position asked for is the one shown in the end.
    virtual void seek(double seconds, SeekDone done) = 0;
    /// Pauses and shows the frame so many frames after the one shown, or before it if negative.
    virtual void step(int frames) = 0;
    /// Pauses on the last frame before this time; without one, on the last frame of the stream.
    virtual void setEndTime(std::optional<double> seconds) = 0;

    virtual double positionSeconds() const = 0;
    /// Absent until it is known, and for streams without an end.
    virtual std::optional<double> durationSeconds() const = 0;

    /// 0 (silent) to 1 (as recorded).
    virtual double volume() const = 0;
    virtual void setVolume(double volume) = 0;
    virtual bool isMuted() const = 0;
    virtual void setMuted(bool muted) = 0;

    /// Null for players without pictures.
    virtual VideoOutput *videoOutput() { return nullptr; }

Q_SIGNALS:
    void statusChanged();
    void playingChanged();
    void positionChanged();
    void durationChanged();
    void volumeChanged();
    /// Playing came to the end time and paused there.
    void endTimeReached();
};

/// Makes a player with nothing loaded. Never gives null: where players cannot be made at all,
/// the one given fails each load and says why.
using MediaPlayerFactory = std::function<std::unique_ptr<MediaPlayer>()>;

} // namespace clipwren
