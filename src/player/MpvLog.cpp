#include "player/MpvLog.h"

#include <algorithm>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

constexpr qsizetype keptLines = 50;

} // namespace

MpvLog::MpvLog() : m_core(mpv_create())
{
    // Without it, failures are told less exactly; that is no reason not to play.
    if (!m_core)
        return;
    mpv_set_option_string(m_core, "config", "no");
    mpv_set_option_string(m_core, "terminal", "no");
    mpv_set_option_string(m_core, "load-scripts", "no");
    mpv_set_option_string(m_core, "load-stats-overlay", "no");
    mpv_set_option_string(m_core, "load-osd-console", "no");
    mpv_set_option_string(m_core, "load-auto-profiles", "no");
    mpv_set_option_string(m_core, "ytdl", "no");
    mpv_set_option_string(m_core, "osc", "no");
    // The answer of a server, such as 404, is only a warning.
    mpv_request_log_messages(m_core, "warn");
    mpv_initialize(m_core);
}

MpvLog::~MpvLog()
{
    if (m_core)
        mpv_terminate_destroy(m_core);
}

quint64 MpvLog::end()
{
    readNew();
    return m_lineCount;
}

QStringList MpvLog::linesSince(quint64 place)
{
    readNew();
    const auto count = std::min(static_cast<qsizetype>(m_lineCount - place), m_lines.size());
    return m_lines.sliced(m_lines.size() - count);
}

void MpvLog::readNew()
{
    if (!m_core)
        return;
    while (true) {
        const mpv_event *const event = mpv_wait_event(m_core, 0);
        if (event->event_id == MPV_EVENT_NONE)
            break;
        if (event->event_id != MPV_EVENT_LOG_MESSAGE)
            continue;
        m_lines << logLine(*static_cast<const mpv_event_log_message *>(event->data));
        ++m_lineCount;
    }
    if (m_lines.size() > keptLines)
        m_lines.remove(0, m_lines.size() - keptLines);
}

QString logLine(const mpv_event_log_message &message)
{
    return QString::fromUtf8(message.prefix) + u": "_s + QString::fromUtf8(message.text).trimmed();
}

} // namespace clipwren
