#include "platform/media/LatestSeek.h"

#include <utility>

namespace clipwren {

LatestSeek::LatestSeek(std::function<void(double seconds)> start) : m_start(std::move(start))
{
}

void LatestSeek::request(double seconds, MediaPlayer::SeekDone done)
{
    const auto replaced = std::exchange(m_waiting, Target{seconds, std::move(done)});
    if (m_open && !m_running)
        startWaiting();
    if (replaced && replaced->done)
        replaced->done(false);
}

void LatestSeek::finish(bool finished)
{
    const auto ended = std::exchange(m_running, std::nullopt);
    if (!ended)
        return;
    if (m_waiting)
        startWaiting();
    // Last, as the callback may ask for the next seek or end the player.
    if (ended->done)
        ended->done(finished);
}

void LatestSeek::open()
{
    m_open = true;
    if (m_waiting && !m_running)
        startWaiting();
}

void LatestSeek::close()
{
    m_open = false;
    const auto running = std::exchange(m_running, std::nullopt);
    const auto waiting = std::exchange(m_waiting, std::nullopt);
    if (running && running->done)
        running->done(false);
    if (waiting && waiting->done)
        waiting->done(false);
}

void LatestSeek::startWaiting()
{
    m_running = std::exchange(m_waiting, std::nullopt);
    m_start(m_running->seconds);
}

} // namespace clipwren
