#include "workflow/preview/PreviewPlayerController.h"

#include "core/media/TrimRange.h"

#include <QPointer>

#include <algorithm>
#include <cmath>
#include <utility>

namespace clipwren {

using namespace Qt::StringLiterals;
PreviewPlayerController::PreviewPlayerController(MediaPlayerFactory makePlayer, QObject *parent)
    : QObject(parent), m_makePlayer(std::move(makePlayer))
{
}

PreviewPlayerController::~PreviewPlayerController()
{
    if (m_player)
        m_player->disconnect(this);
}

void PreviewPlayerController::load(const QUrl &url)
{
    releasePlayer();
    m_isLoading = true;
    m_player = m_makePlayer();
    MediaPlayer *const player = m_player.get();
    connect(player, &MediaPlayer::playingChanged, this, [this] {
        m_isPlaying = m_player->isPlaying();
        Q_EMIT changed();
    });
    connect(player, &MediaPlayer::statusChanged, this, &PreviewPlayerController::followStatus);
    connect(player, &MediaPlayer::endTimeReached, this, &PreviewPlayerController::endRange);
    player->load(url);
    Q_EMIT changed();
}

void PreviewPlayerController::followStatus()
{
    switch (m_player->status()) {
    case MediaPlayer::Status::Empty:
    case MediaPlayer::Status::Loading:
        return;
    case MediaPlayer::Status::Ready:
        m_isLoading = false;
        m_loadError.reset();
        break;
    case MediaPlayer::Status::Failed: {
        const QString failure = m_player->failure();
        m_loadError = failure.isEmpty() ? tr("Preview unavailable") : failure;
        releasePlayer();
        break;
    }
    }
    Q_EMIT changed();
}

void PreviewPlayerController::unload()
{
    releasePlayer();
    Q_EMIT changed();
}

void PreviewPlayerController::releasePlayer()
{
    ++m_rangeNumber;
    m_isPlaying = false;
    m_isLoading = false;
    if (!m_player)
        return;
    m_player->disconnect(this);
    m_player->setEndTime(std::nullopt);
    m_player->pause();
    // The view lets go of it on changed(), and it may be the player whose signal runs right now.
    m_player.release()->deleteLater();
}

void PreviewPlayerController::endRange()
{
    ++m_rangeNumber;
    if (m_player)
        m_player->setEndTime(std::nullopt);
}

void PreviewPlayerController::pause()
{
    if (!m_player)
        return;
    endRange();
    m_player->pause();
}

void PreviewPlayerController::seek(double to)
{
    if (!m_player || !std::isfinite(to))
        return;
    pause();
    m_player->seek(std::max(to, 0.0), {});
}

void PreviewPlayerController::playRange(double start, double end)
{
    if (!m_player || !std::isfinite(start) || std::isnan(end))
        return;
    endRange();
    const double endTime = std::max(end, start + shortestTrimSeconds);
    // A seek that did not finish leaves the player somewhere, and playing is still what was asked
    // for. Only what ends a range keeps it from starting.
    m_player->seek(
        std::max(start, 0.0), [self = QPointer(this), endTime, range = m_rangeNumber](bool) {
            if (!self || range != self->m_rangeNumber)
                return;
            self->m_player->setEndTime(std::isinf(endTime) ? std::nullopt : std::optional(endTime));
            self->m_player->play();
        });
}

} // namespace clipwren
