#pragma once

#include "support/Printing.h"

#include <QProcess>
#include <QTemporaryDir>

#include <functional>
#include <gtest/gtest.h>

namespace clipwren::test {

using namespace Qt::StringLiterals;

/// A moment of a save: a tool works for a video of the sample site.
struct ToolAtWork {
    const char *name;
    QString page;
    QString argument; ///< that only this tool has
    QString file; ///< a part of a name in the downloads folder that shows that it is at work
};

inline const ToolAtWork lookUpAtWork{"LookUp", u"silent"_s, u" -J "_s, {}};
inline const ToolAtWork downloadAtWork{"Download", u"slow"_s, u" --newline "_s, u".part"_s};
/// Of a save as ProRes.
inline const ToolAtWork conversionAtWork{"Conversion", u"tide-clock-01"_s, u" -progress "_s,
                                         u".mov"_s};

/// Runs the real program, in a home of its own with no screen (unless it is given one) and no
/// settings of ours in reach.
class ProgramTest : public testing::Test {
protected:
    /// Throws std::runtime_error when there is no temporary folder.
    ProgramTest();

    struct Outcome {
        int exitStatus = -1; ///< as a shell tells it: 128 and a signal's number where one ended it
        QString standardOutput;
        QString standardError;
    };

    /// Runs the program to its end, and `meanwhile` beside it. Fails the test when the program
    /// does not end, or when it leaves a tool running.
    Outcome run(const QStringList &arguments,
                const std::function<void(const QProcess &)> &meanwhile = {}) const;

    /// The X display that the program finds from now on.
    void setDisplay(const QString &display) { m_display = display; }

    /// Absolute, without symbolic links, and found in no other process's arguments.
    const QString &home() const { return m_home; }
    /// Where the program saves: the user's videos folder has a name of the user's language.
    QString downloadsFolder() const { return m_home + u"/Vidéos/Clipwren"_s; }
    /// The names in that folder, hidden and unfinished files too.
    QStringList savedFiles() const;
    /// The command lines, arguments parted by blanks, of running processes that name this home.
    /// Fails the test when a tool among them has what the desktop gave to the window alone.
    QStringList processes() const;
    bool isAtWork(const ToolAtWork &tool) const
    {
        return !processes().filter(tool.argument).isEmpty()
            && (tool.file.isEmpty() || !savedFiles().filter(tool.file).isEmpty());
    }
    /// The page with the home's path in its address, which marks every tool that is run for it.
    QString markedPage(const QString &page) const { return page + u"&from="_s + m_home; }
    /// What the program is run with.
    QProcessEnvironment environment() const;

private:
    QTemporaryDir m_folder;
    QString m_home;
    QString m_display;
};

} // namespace clipwren::test
