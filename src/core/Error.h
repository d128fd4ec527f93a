#pragma once

#include <QString>

#include <exception>
#include <string>

namespace clipwren {

/// What a tool wrote before it failed.
struct ToolLog {
    QString tool; ///< the program's name, as in "ffmpeg"; empty when no tool was at work
    QString text;
};

/// Base of every failure that this application raises itself.
///
/// Carries one sentence for the user. Failures to start a program or to reach a file are
/// `std::system_error` with the text of errno instead.
class Error : public std::exception {
public:
    explicit Error(const QString &description);
    Error(const QString &description, const QString &summary, const ToolLog &log);

    /// The whole of it, which may hold a tool's log.
    QString errorDescription() const { return m_description; }
    /// The description in one line.
    QString summary() const { return m_summary; }
    /// Its text is empty when the failure came with none.
    ToolLog toolLog() const { return m_toolLog; }
    const char *what() const noexcept override { return m_utf8.c_str(); }

private:
    QString m_description;
    QString m_summary;
    ToolLog m_toolLog;
    std::string m_utf8;
};

/// A failure of the error domain "Clipwren", told apart by its number.
class ClipwrenError : public Error {
public:
    enum class Code {
        NoOutputPath = 2, ///< the download ended without naming its file
        EmptyProbeOutput = 5, ///< ffprobe succeeded and printed nothing
    };

    ClipwrenError(Code code, const QString &description, const ToolLog &log = {});

    static QString domain();
    Code code() const { return m_code; }

private:
    Code m_code;
};

/// The work was stopped on request. Never shown as a failure.
class CancellationError : public Error {
public:
    CancellationError();
};

/// The sentence for the user of any exception: `errorDescription()` of ours, errno's text of a
/// `std::system_error`, otherwise `what()`.
QString errorDescription(const std::exception &error);
/// The same in one line.
QString errorSummary(const std::exception &error);
/// What the tool wrote; empty when the error carries nothing.
ToolLog toolLogOf(const std::exception &error);

} // namespace clipwren
