#pragma once

#include "platform/media/LatestSeek.h"
#include "platform/media/MediaPlayer.h"

#include <QStringList>

#include <algorithm>
#include <utility>

namespace clipwren::test {

using namespace Qt::StringLiterals;

/// A player that notes what it was told to do, and the test says what happens. It has pictures only
/// where it is given an output, which should be its child.
class ScriptedPlayer : public MediaPlayer {
public:
    /// What was told, in order: "load URL", "play", "pause", "seek 1.5", "end 5", "no end".
    /// Given from outside, as the player may be gone before the test reads it.
    explicit ScriptedPlayer(QStringList &log) : m_log(log) { }

    void becomeReady()
    {
        m_seeks.open();
        setStatus(Status::Ready);
    }
    void fail(const QString &failure)
    {
        m_failure = failure;
        setStatus(Status::Failed);
    }
    void finishSeek(bool finished = true) { m_seeks.finish(finished); }
    bool isSeeking() const { return m_seeks.isRunning(); }
    /// Plays on to the end time.
    void reachEndTime()
    {
        m_position = m_endTime.value();
        setPlaying(false);
        Q_EMIT endTimeReached();
    }
    std::optional<double> endTime() const { return m_endTime; }
    void setVideoOutput(VideoOutput *output) { m_output = output; }
    VideoOutput *videoOutput() override { return m_output; }

    void load(const QUrl &url) override
    {
        note(u"load "_s + url.toString());
        m_url = url;
        setStatus(Status::Loading);
    }
    QUrl url() const override { return m_url; }
    Status status() const override { return m_status; }
    QString failure() const override { return m_failure; }

    void play() override
    {
        note(u"play"_s);
        setPlaying(true);
    }
    void pause() override
    {
        note(u"pause"_s);
        setPlaying(false);
    }
    bool isPlaying() const override { return m_playing; }

    void seek(double seconds, SeekDone done) override { m_seeks.request(seconds, std::move(done)); }
    void step(int frames) override
    {
        note(u"step %1"_s.arg(frames));
        setPlaying(false);
    }
    void setEndTime(std::optional<double> seconds) override
    {
        if (seconds || m_endTime)
            note(seconds ? u"end %1"_s.arg(*seconds) : u"no end"_s);
        m_endTime = seconds;
    }

    double positionSeconds() const override { return m_position; }
    std::optional<double> durationSeconds() const override { return m_duration; }
    void setDuration(double seconds)
    {
        m_duration = seconds;
        Q_EMIT durationChanged();
    }

    double volume() const override { return m_volume; }
    void setVolume(double volume) override
    {
        m_volume = std::clamp(volume, 0.0, 1.0);
        Q_EMIT volumeChanged();
    }
    bool isMuted() const override { return m_muted; }
    void setMuted(bool muted) override
    {
        m_muted = muted;
        Q_EMIT volumeChanged();
    }

private:
    void note(const QString &line) { m_log << line; }
    void setStatus(Status status)
    {
        m_status = status;
        Q_EMIT statusChanged();
    }
    void setPlaying(bool playing)
    {
        if (std::exchange(m_playing, playing) != playing)
            Q_EMIT playingChanged();
    }

    QStringList &m_log;
    VideoOutput *m_output = nullptr;
    LatestSeek m_seeks{[this](double seconds) {
        m_position = seconds;
        note(u"seek %1"_s.arg(seconds));
        Q_EMIT positionChanged();
    }};
    QUrl m_url;
    Status m_status = Status::Empty;
    QString m_failure;
    bool m_playing = false;
    std::optional<double> m_endTime;
    double m_position = 0;
    std::optional<double> m_duration;
    double m_volume = 1;
    bool m_muted = false;
};

} // namespace clipwren::test
