#pragma once

#include "platform/media/LatestSeek.h"
#include "platform/media/MediaPlayer.h"
#include "player/MpvInstance.h"

#include <QStringList>
#include <QTimer>

#include <mpv/client.h>

namespace clipwren {

class MpvLog;

/// The media player over libmpv.
///
/// mpv runs on threads of its own. Everything told to it and everything read from it goes through
/// its queue, so no call here waits for the network or a decoder.
class MpvPlayer : public MediaPlayer {
    Q_OBJECT

public:
    /// Throws `Error` when mpv cannot start.
    MpvPlayer(MpvLog &log, const PlayerOptions &options);
    ~MpvPlayer() override;

    void load(const QUrl &url) override;
    QUrl url() const override { return m_url; }
    Status status() const override { return m_status; }
    QString failure() const override { return m_failure; }

    void play() override;
    void pause() override;
    bool isPlaying() const override { return m_playing; }

    void seek(double seconds, SeekDone done) override;
    void step(int frames) override;
    void setEndTime(std::optional<double> seconds) override;

    double positionSeconds() const override { return m_position; }
    std::optional<double> durationSeconds() const override { return m_duration; }

    double volume() const override { return m_volume; }
    void setVolume(double volume) override;
    bool isMuted() const override { return m_muted; }
    void setMuted(bool muted) override;

    VideoOutput *videoOutput() override { return &m_mpv.renderer(); }

private:
    enum class SeekStep { None, Sent, Accepted, Begun };

    void forgetStream();
    void startSeek(double seconds);
    void endSeek(bool finished);
    void resumeAfterSeek();
    void jumpBeforePlaying(double seconds);
    bool isAtLastFrame() const;
    void tellPause();
    void askWhetherPaused();
    void setPlaying(bool playing);
    void fail(const QString &sentence);

    // Whoever is told by a signal or a callback may destroy the player, so each tells last.
    void handle(const mpv_event &event);
    void onReply(const mpv_event &event);
    void onLog(const mpv_event_log_message &message);
    void onEnd(const mpv_event_end_file &end);
    void onQueueEmpty();
    void onLoadTimeout();
    void onPicture();
    void onSeekBegun();
    void onProperty(const mpv_event_property &property);
    void onPausedByMpv();

    MpvLog &m_log;
    MpvInstance m_mpv;
    LatestSeek m_seeks;
    QUrl m_url;
    Status m_status = Status::Empty;
    QString m_failure;
    // Errors of this core since the load, and where those of ffmpeg begin.
    QStringList m_errorLog;
    quint64 m_logStart = 0;
    QTimer m_loadTimeout;

    // Replies carry the number of their request; only the newest of each kind counts.
    quint64 m_loadNumber = 0;
    quint64 m_seekNumber = 0;
    quint64 m_pauseNumber = 0;

    // mpv's number of the stream that was loaded last, once known, and whether mpv is at it.
    std::optional<qint64> m_entry;
    bool m_atEntry = false;
    // mpv's code for why it gave the stream up. Its log, which says more, comes after all events.
    std::optional<int> m_endedWith;

    SeekStep m_seekStep = SeekStep::None;
    bool m_seekable = true;
    bool m_playing = false;
    // Played to the end of the stream; true until a jump away from it began.
    bool m_atEnd = false;
    // Playing resumes when the requested seek has begun.
    bool m_heldForSeek = false;
    std::optional<double> m_endTime;
    double m_position = 0;
    std::optional<double> m_duration;
    double m_framesPerSecond = 0;
    double m_volume = 1;
    bool m_muted = false;
};

} // namespace clipwren
