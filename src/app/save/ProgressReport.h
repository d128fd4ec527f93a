#pragma once

#include "core/ytdlp/DownloadProgress.h"

#include <QString>

#include <cstdio>

namespace clipwren {

/// The text as one line that a terminal can show: line breaks and other control characters (C0, DEL
/// and C1, so every escape sequence) are blanks, and what turns the direction of the text that
/// follows is left out. The marks that right-to-left titles need stay.
QString forTerminal(QString text);

/// Tells on a terminal, or in a log, how far a save has come.
///
/// On a terminal one line renews itself. Elsewhere each status is a line of its own, and a stage
/// prints a line at its start, at every quarter, and at its end. Whatever the texts hold, no
/// control character of theirs comes out.
class ProgressReport {
public:
    explicit ProgressReport(std::FILE *output);
    ~ProgressReport();
    ProgressReport(const ProgressReport &) = delete;
    ProgressReport &operator=(const ProgressReport &) = delete;

    /// A text that stays.
    void line(const QString &text);
    /// A text that the next one replaces.
    void status(const QString &text);
    void progress(const QString &stage, const DownloadProgress &progress);

private:
    void renew(const QString &text);
    void clear();
    void write(const QString &text);

    std::FILE *m_output;
    bool m_isTerminal;
    bool m_hasOpenLine = false;
    QString m_stage;
    int m_quarter = -1; ///< the last one printed of the stage
};

} // namespace clipwren
