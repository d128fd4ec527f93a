#include "player/MpvPlayer.h"

#include "player/MpvLog.h"
#include "player/MpvValues.h"
#include "player/PlaybackFailure.h"

#include <QCoreApplication>
#include <QPointer>

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

// The low byte of a reply number says what was asked, the rest counts.
enum class Request : quint64 { None, Load, Seek, SetPause, GetPause };

quint64 replyId(Request request, quint64 number)
{
    return number << 8 | static_cast<quint64>(request);
}

constexpr qsizetype keptLogLines = 50;
// mpv stops on the last frame before the end, and a container's length is not exact.
constexpr double endToleranceSeconds = 0.1;
// More than mpv has decoded beyond the picture it shows.
constexpr double framesAhead = 4;
constexpr double usualFramesPerSecond = 25;

} // namespace

MpvPlayer::MpvPlayer(MpvLog &log, const PlayerOptions &options)
    : m_log(log), m_mpv(options), m_seeks([this](double target) { startSeek(target); })
{
    m_loadTimeout.setSingleShot(true);
    m_loadTimeout.setInterval(options.networkTimeout);
    connect(&m_loadTimeout, &QTimer::timeout, this, &MpvPlayer::onLoadTimeout);
    mpv_handle *const mpv = m_mpv.handle();
    mpv_observe_property(mpv, 0, "time-pos", MPV_FORMAT_DOUBLE);
    mpv_observe_property(mpv, 0, "duration", MPV_FORMAT_DOUBLE);
    mpv_observe_property(mpv, 0, "container-fps", MPV_FORMAT_DOUBLE);
    mpv_observe_property(mpv, 0, "seekable", MPV_FORMAT_FLAG);
    // Only that it changed: a value on its way may be older than what was told meanwhile.
    mpv_observe_property(mpv, 0, "pause", MPV_FORMAT_NONE);
    m_mpv.setEventHandler([this](const mpv_event &event) { handle(event); });
}

MpvPlayer::~MpvPlayer()
{
    m_mpv.setEventHandler({});
}

void MpvPlayer::load(const QUrl &url)
{
    const auto address = mpvAddress(url);
    if (!address) {
        m_url = url;
        fail(QCoreApplication::translate("MpvPlayer",
                                         "Videos cannot be played from this kind of address."));
        return;
    }
    forgetStream();
    m_url = url;
    m_status = Status::Loading;
    tellPause();
    m_mpv.setProperty(0, "end", "none");
    // A stream may consist of many files; a file on the disk must not make mpv open others.
    m_mpv.setProperty(0, "access-references", yesNo(!url.isLocalFile()));
    if (!url.isLocalFile())
        m_loadTimeout.start();
    m_mpv.command(replyId(Request::Load, m_loadNumber), {"loadfile", *address, "replace"});
    const QPointer guard(this);
    m_seeks.close();
    if (guard)
        Q_EMIT statusChanged();
}

void MpvPlayer::onQueueEmpty()
{
    if (const auto error = std::exchange(m_endedWith, std::nullopt))
        fail(playbackFailure(*error, m_errorLog + m_log.linesSince(m_logStart)));
}

// mpv's own limit is for one answer, of which a stream may need many.
void MpvPlayer::onLoadTimeout()
{
    fail(playbackFailure(MPV_ERROR_LOADING_FAILED, {u"timed out"_s}));
}

void MpvPlayer::fail(const QString &sentence)
{
    forgetStream();
    m_failure = sentence;
    m_status = Status::Failed;
    m_mpv.command(0, {"stop"});
    const QPointer guard(this);
    m_seeks.close();
    if (guard)
        Q_EMIT statusChanged();
}

void MpvPlayer::forgetStream()
{
    ++m_loadNumber;
    m_loadTimeout.stop();
    m_mpv.renderer().setBlank(true);
    m_entry.reset();
    m_atEntry = false;
    m_endedWith.reset();
    m_failure.clear();
    m_errorLog.clear();
    m_logStart = m_log.end();
    m_seekStep = SeekStep::None;
    m_seekable = true;
    m_playing = false;
    m_atEnd = false;
    m_heldForSeek = false;
    m_endTime.reset();
    m_position = 0;
    m_duration.reset();
    m_framesPerSecond = usualFramesPerSecond;
}

void MpvPlayer::play()
{
    if (m_playing || m_status == Status::Empty || m_status == Status::Failed)
        return;
    if (m_atEnd || (!m_endTime && !m_seeks.isRunning() && isAtLastFrame())) {
        jumpBeforePlaying(0);
    } else if (m_endTime && *m_endTime - m_position < framesAhead / m_framesPerSecond) {
        // Frames read ahead without an end time would be shown past it. Reads them again.
        jumpBeforePlaying(m_position);
    }
    setPlaying(true);
}

// mpv pauses again at once when it is let go before the jump away from an end has begun.
void MpvPlayer::jumpBeforePlaying(double target)
{
    m_heldForSeek = true;
    if (!m_seeks.isRunning())
        m_seeks.request(target, {});
}

bool MpvPlayer::isAtLastFrame() const
{
    return m_duration && m_position >= *m_duration - endToleranceSeconds;
}

void MpvPlayer::pause()
{
    setPlaying(false);
}

void MpvPlayer::setPlaying(bool playing)
{
    if (m_playing == playing)
        return;
    m_playing = playing;
    tellPause();
    Q_EMIT playingChanged();
}

void MpvPlayer::tellPause()
{
    m_mpv.setProperty(replyId(Request::SetPause, ++m_pauseNumber), "pause",
                      yesNo(!m_playing || m_heldForSeek));
}

void MpvPlayer::seek(double target, SeekDone done)
{
    if (!std::isfinite(target) || m_status == Status::Empty || m_status == Status::Failed) {
        if (done)
            done(false);
        return;
    }
    m_position = std::max(target, 0.0);
    if (m_duration)
        m_position = std::min(m_position, *m_duration);
    const QPointer guard(this);
    Q_EMIT positionChanged();
    if (guard)
        m_seeks.request(m_position, std::move(done));
}

void MpvPlayer::step(int frames)
{
    const QPointer guard(this);
    pause();
    if (guard)
        seek(m_position + frames / m_framesPerSecond, {});
}

void MpvPlayer::startSeek(double target)
{
    if (!m_seekable) {
        endSeek(false);
        return;
    }
    m_seekStep = SeekStep::Sent;
    m_mpv.command(replyId(Request::Seek, ++m_seekNumber),
                  {"seek", seconds(target), "absolute+exact"});
}

void MpvPlayer::onSeekBegun()
{
    if (m_seekStep != SeekStep::Accepted)
        return;
    m_seekStep = SeekStep::Begun;
    m_atEnd = false;
    resumeAfterSeek();
}

void MpvPlayer::endSeek(bool finished)
{
    m_seekStep = SeekStep::None;
    resumeAfterSeek();
    m_seeks.finish(finished);
}

void MpvPlayer::resumeAfterSeek()
{
    if (std::exchange(m_heldForSeek, false))
        tellPause();
}

void MpvPlayer::setEndTime(std::optional<double> end)
{
    if (m_endTime == end)
        return;
    m_endTime = end;
    // Negative times would count from the stream's end.
    m_mpv.setProperty(0, "end", end ? seconds(std::max(*end, 1e-6)) : QByteArrayLiteral("none"));
}

void MpvPlayer::setVolume(double volume)
{
    m_volume = std::clamp(volume, 0.0, 1.0);
    m_mpv.setProperty(0, "volume", seconds(m_volume * 100));
    Q_EMIT volumeChanged();
}

void MpvPlayer::setMuted(bool muted)
{
    m_muted = muted;
    m_mpv.setProperty(0, "mute", yesNo(muted));
    Q_EMIT volumeChanged();
}

void MpvPlayer::handle(const mpv_event &event)
{
    switch (event.event_id) {
    case MPV_EVENT_NONE:
        onQueueEmpty();
        break;
    case MPV_EVENT_COMMAND_REPLY:
    case MPV_EVENT_SET_PROPERTY_REPLY:
    case MPV_EVENT_GET_PROPERTY_REPLY:
        onReply(event);
        break;
    case MPV_EVENT_LOG_MESSAGE:
        onLog(*static_cast<const mpv_event_log_message *>(event.data));
        break;
    case MPV_EVENT_START_FILE:
        m_atEntry =
            m_entry == static_cast<const mpv_event_start_file *>(event.data)->playlist_entry_id;
        break;
    case MPV_EVENT_END_FILE:
        onEnd(*static_cast<const mpv_event_end_file *>(event.data));
        break;
    case MPV_EVENT_SEEK:
        onSeekBegun();
        break;
    case MPV_EVENT_PLAYBACK_RESTART:
        if (m_atEntry)
            onPicture();
        break;
    case MPV_EVENT_PROPERTY_CHANGE:
        onProperty(*static_cast<const mpv_event_property *>(event.data));
        break;
    default:
        break;
    }
}

void MpvPlayer::onReply(const mpv_event &event)
{
    const quint64 number = event.reply_userdata >> 8;
    switch (static_cast<Request>(event.reply_userdata & 0xff)) {
    case Request::None:
        break;
    case Request::Load:
        if (number != m_loadNumber)
            break;
        if (event.error < 0)
            m_endedWith = event.error;
        else
            m_entry = playlistEntry(static_cast<const mpv_event_command *>(event.data)->result);
        break;
    case Request::Seek:
        if (number != m_seekNumber || m_seekStep != SeekStep::Sent)
            break;
        m_seekStep = SeekStep::Accepted;
        if (event.error < 0)
            endSeek(false);
        break;
    case Request::SetPause:
        if (number == m_pauseNumber)
            askWhetherPaused();
        break;
    case Request::GetPause:
        if (number == m_pauseNumber && event.error >= 0
            && flag(*static_cast<const mpv_event_property *>(event.data), false))
            onPausedByMpv();
        break;
    }
}

void MpvPlayer::askWhetherPaused()
{
    mpv_get_property_async(m_mpv.handle(), replyId(Request::GetPause, m_pauseNumber), "pause",
                           MPV_FORMAT_FLAG);
}

// mpv pauses by itself only at an end.
void MpvPlayer::onPausedByMpv()
{
    if (!m_playing || m_heldForSeek || m_status != Status::Ready)
        return;
    m_playing = false;
    const bool hadEndTime = m_endTime.has_value();
    // Before the end of the stream it can go on from where it is.
    m_atEnd = !hadEndTime || (m_duration && *m_endTime >= *m_duration - endToleranceSeconds);
    const QPointer guard(this);
    Q_EMIT playingChanged();
    if (guard && hadEndTime)
        Q_EMIT endTimeReached();
}

void MpvPlayer::onLog(const mpv_event_log_message &message)
{
    if (m_errorLog.size() < keptLogLines)
        m_errorLog << logLine(message);
}

void MpvPlayer::onEnd(const mpv_event_end_file &end)
{
    if (m_entry != end.playlist_entry_id)
        return;
    m_endedWith = end.reason == MPV_END_FILE_REASON_REDIRECT ? MPV_ERROR_UNKNOWN_FORMAT : end.error;
}

void MpvPlayer::onPicture()
{
    if (m_status == Status::Ready) {
        if (m_seekStep == SeekStep::Begun)
            endSeek(true);
        return;
    }
    m_status = Status::Ready;
    m_loadTimeout.stop();
    m_mpv.renderer().setBlank(false);
    // A very short stream may have come to its end already.
    askWhetherPaused();
    const QPointer guard(this);
    Q_EMIT statusChanged();
    if (guard)
        m_seeks.open();
}

void MpvPlayer::onProperty(const mpv_event_property &property)
{
    if (!m_atEntry)
        return;
    const std::string_view name = property.name;
    if (name == "pause") {
        askWhetherPaused();
    } else if (name == "seekable") {
        m_seekable = flag(property, m_seekable);
    } else if (name == "container-fps") {
        const double rate = number(property).value_or(0);
        m_framesPerSecond = rate > 0 ? rate : usualFramesPerSecond;
    } else if (name == "duration") {
        m_duration = number(property);
        Q_EMIT durationChanged();
    } else if (name == "time-pos" && !m_seeks.isRunning()) {
        if (const auto position = number(property)) {
            // Sound may begin a little before time zero.
            m_position = std::max(0.0, m_endTime ? std::min(*position, *m_endTime) : *position);
            Q_EMIT positionChanged();
        }
    }
}

} // namespace clipwren
