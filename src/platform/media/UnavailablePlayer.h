#pragma once

#include "platform/media/MediaPlayer.h"

namespace clipwren {

/// Stands in where no player can be made: every load fails and says why.
class UnavailablePlayer : public MediaPlayer {
    Q_OBJECT

public:
    explicit UnavailablePlayer(const QString &reason) : m_reason(reason) { }

    void load(const QUrl &url) override;
    QUrl url() const override { return m_url; }
    Status status() const override { return m_status; }
    QString failure() const override;

    void play() override { }
    void pause() override { }
    bool isPlaying() const override { return false; }
    void seek(double seconds, SeekDone done) override;
    void step(int) override { }
    void setEndTime(std::optional<double>) override { }
    double positionSeconds() const override { return 0; }
    std::optional<double> durationSeconds() const override { return {}; }
    double volume() const override { return 1; }
    void setVolume(double) override { }
    bool isMuted() const override { return false; }
    void setMuted(bool) override { }

private:
    QString m_reason;
    QUrl m_url;
    Status m_status = Status::Empty;
};

} // namespace clipwren
