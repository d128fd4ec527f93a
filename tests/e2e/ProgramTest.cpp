#include "e2e/ProgramTest.h"

#include "support/Files.h"

#include <QDir>
#include <QTest>

#include <array>
#include <csignal>

namespace clipwren::test {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array activationVariables{"XDG_ACTIVATION_TOKEN", "DESKTOP_STARTUP_ID"};

} // namespace

ProgramTest::ProgramTest() : m_home(QDir(m_folder.path()).canonicalPath())
{
    QDir(m_home).mkpath(u"config"_s);
    QDir(m_home).mkpath(u"Vidéos"_s);
    writeFile(m_home + u"/config/user-dirs.dirs"_s, "XDG_VIDEOS_DIR=\"$HOME/Vidéos\"\n");
}

ProgramTest::Outcome ProgramTest::run(const QStringList &arguments,
                                      const std::function<void(const QProcess &)> &meanwhile) const
{
    QProcess process;
    process.setProcessEnvironment(environment());
    process.setStandardInputFile(QProcess::nullDevice());
    // Some starters leave it so, and then no tool's exit status would be known.
    process.setChildProcessModifier([] { std::signal(SIGCHLD, SIG_IGN); });
    process.start(QStringLiteral(CLIPWREN_PROGRAM), arguments);
    if (meanwhile && process.waitForStarted())
        meanwhile(process);
    if (process.state() != QProcess::NotRunning && !process.waitForFinished(150'000)) {
        ADD_FAILURE() << "the program does not end";
        // It is to stop its tools, too.
        process.terminate();
        process.waitForFinished(10'000);
    }
    const bool signalled = process.exitStatus() == QProcess::CrashExit;
    // Without the program, its tools take a moment to tidy up.
    EXPECT_TRUE(!signalled || QTest::qWaitFor([&] { return processes().isEmpty(); }, 10'000));
    EXPECT_EQ(processes(), QStringList()) << "a tool was left running";
    return {(signalled ? 128 : 0) + process.exitCode(),
            QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

QStringList ProgramTest::savedFiles() const
{
    return QDir(downloadsFolder())
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}

QStringList ProgramTest::processes() const
{
    QStringList result;
    for (const QString &name : QDir(u"/proc"_s).entryList(QDir::Dirs)) {
        const QString folder = u"/proc/"_s + name;
        const QString commandLine =
            QString::fromUtf8(readFile(folder + u"/cmdline"_s).replace('\0', ' '));
        if (!name[0].isDigit() || !commandLine.contains(m_home))
            continue;
        result.append(commandLine);
        if (commandLine.startsWith(QStringLiteral(CLIPWREN_PROGRAM)))
            continue;
        for (const char *variable : activationVariables) {
            EXPECT_FALSE(readFile(folder + u"/environ"_s).contains(variable))
                << commandLine.toStdString();
        }
    }
    return result;
}

QProcessEnvironment ProgramTest::environment() const
{
    QProcessEnvironment result;
    // Only what runs the tools and the sanitizers: no screen, no proxy, no settings.
    for (const char *name : {"PATH", "ASAN_OPTIONS", "TSAN_OPTIONS", "UBSAN_OPTIONS"}) {
        if (qEnvironmentVariableIsSet(name))
            result.insert(QString::fromLatin1(name), qEnvironmentVariable(name));
    }
    result.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    // What a desktop gives to a window alone.
    for (const char *name : activationVariables)
        result.insert(QString::fromLatin1(name), u"of-the-window"_s);
    result.insert(u"HOME"_s, m_home);
    if (!m_display.isEmpty())
        result.insert(u"DISPLAY"_s, m_display);
    for (const QString &kind : {u"config"_s, u"data"_s, u"cache"_s, u"state"_s})
        result.insert(u"XDG_%1_HOME"_s.arg(kind.toUpper()), m_home + u'/' + kind);
    return result;
}

} // namespace clipwren::test
