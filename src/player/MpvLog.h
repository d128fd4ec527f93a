#pragma once

#include <QString>
#include <QStringList>

#include <mpv/client.h>

namespace clipwren {

/// What ffmpeg logs of errors and warnings, for every core of the process.
///
/// ffmpeg has one log, and mpv gives all of it to the core that was started first. When that core
/// goes, the log goes to standard error. So a core that plays nothing is started first of all and
/// stays; it sleeps. Used on the user-interface thread.
class MpvLog {
public:
    MpvLog();
    ~MpvLog();
    MpvLog(const MpvLog &) = delete;
    MpvLog &operator=(const MpvLog &) = delete;

    /// A place to read from later.
    quint64 end();
    /// What was logged after a place, by whichever core. At most the last 50 lines.
    QStringList linesSince(quint64 place);

private:
    void readNew();

    mpv_handle *m_core = nullptr;
    QStringList m_lines;
    quint64 m_lineCount = 0;
};

/// One line of it, "prefix: text".
QString logLine(const mpv_event_log_message &message);

} // namespace clipwren
