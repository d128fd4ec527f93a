#include "core/media/OutputFile.h"
#include "e2e/ProgramTest.h"
#include "support/Files.h"
#include "support/SampleSite.h"
#include "workflow/download/VideoLock.h"

#include <QDir>
#include <QTest>

#include <csignal>

namespace clipwren::test {
namespace {

using namespace Qt::StringLiterals;

struct PhaseCase {
    ToolAtWork tool;
    QString left; ///< a part of every name that is there afterwards
};

const PhaseCase phases[] = {
    {lookUpAtWork, {}},
    {downloadAtWork, u"[slow-1].f"_s},
    {conversionAtWork, u"[tide-clock-01-1].mp4"_s},
};

struct EndCase {
    const char *name;
    QString key; ///< to press
    int signal; ///< 0 for none; without a key either, the X server ends
    int exitStatus;
};

const EndCase ends[] = {
    {"Quit", u"ctrl+q"_s, 0, 0},
    {"Interrupt", {}, SIGINT, 0},
    {"Terminate", {}, SIGTERM, 0},
    {"LostDisplay", {}, 0, 1},
};

/// The program with its window, on an X server of its own that can end before it.
class WindowEndTest : public ProgramTest,
                      public testing::WithParamInterface<std::tuple<PhaseCase, EndCase>> {
protected:
    WindowEndTest()
    {
        // It prints the number that was free.
        m_server.start(u"Xvfb"_s, {u"-displayfd"_s, u"1"_s});
        EXPECT_TRUE(m_server.waitForReadyRead(20'000));
        setDisplay(u':' + QString::fromLatin1(m_server.readAllStandardOutput().trimmed()));
        EXPECT_TRUE(QDir(home()).mkpath(u"config/Clipwren"_s));
        writeFile(home() + u"/config/Clipwren/clipwren.conf"_s,
                  "[General]\noutputFormat=proRes422\n");
    }
    ~WindowEndTest() override { endServer(); }

    void endServer()
    {
        m_server.terminate();
        m_server.waitForFinished(10'000);
    }
    /// Without a window manager, nobody else gives the window the focus.
    void press(const QStringList &keys) const
    {
        QProcess xdotool;
        xdotool.setProcessEnvironment(environment());
        xdotool.start(u"xdotool"_s,
                      QStringList{u"search"_s, u"--sync"_s, u"--onlyvisible"_s, u"--class"_s,
                                  u"^clipwren$"_s, u"windowfocus"_s, u"key"_s}
                          + keys);
        EXPECT_TRUE(xdotool.waitForFinished(20'000));
    }

    /// Goes on from phase to phase, as nothing tells from outside when the window takes a key.
    void pressUntilAtWork(const ToolAtWork &tool) const
    {
        EXPECT_TRUE(QTest::qWaitFor(
            [&] {
                press({u"Return"_s, u"ctrl+Return"_s}); // "Continue", and then "Download"
                return isAtWork(tool);
            },
            60'000));
    }

    SampleSite m_site;

private:
    QProcess m_server;
};

TEST_P(WindowEndTest, stopsTheToolAndKeepsWhatWasDownloaded)
{
    const auto &[phase, end] = GetParam();
    const QString address = m_site.address(u"/watch?v="_s + markedPage(phase.tool.page));
    QElapsedTimer timer;
    const Outcome outcome = run({address}, [&](const QProcess &program) {
        pressUntilAtWork(phase.tool);
        timer.start();
        if (!end.key.isEmpty())
            press({end.key});
        else if (end.signal != 0)
            ::kill(static_cast<pid_t>(program.processId()), end.signal);
        else
            endServer();
    });
    EXPECT_EQ(outcome.exitStatus, end.exitStatus) << outcome.standardError.toStdString();
    // The tools themselves would go on for longer.
    EXPECT_LT(timer.elapsed(), 10'000);
    // As the next start does.
    OutputFile::restoreAfterKill(downloadsFolder());
    VideoLock::removeAfterKill(downloadsFolder());
    const QStringList left = savedFiles();
    EXPECT_EQ(left.isEmpty(), phase.left.isEmpty());
    EXPECT_EQ(left.filter(phase.left), left) << left.join(u' ').toStdString();
}

INSTANTIATE_TEST_SUITE_P(, WindowEndTest,
                         testing::Combine(testing::ValuesIn(phases), testing::ValuesIn(ends)),
                         [](const auto &tested) {
                             return std::string(std::get<PhaseCase>(tested.param).tool.name)
                                 + std::get<EndCase>(tested.param).name;
                         });

} // namespace
} // namespace clipwren::test
