#include "app/instance/LibraryClaim.h"
#include "core/library/DownloadStore.h"
#include "e2e/ProgramTest.h"
#include "support/SampleSite.h"

#include <QDir>
#include <QElapsedTimer>
#include <QLocalSocket>
#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <array>
#include <gmock/gmock.h>
#include <memory>

namespace clipwren::test {
namespace {

using namespace Qt::StringLiterals;
using testing::HasSubstr;

/// The program with its window, on no screen, beside others of its kind.
class WindowProgramTest : public ProgramTest {
protected:
    using Process = std::unique_ptr<QProcess>;

    WindowProgramTest() { QDir(home()).mkpath(runtimeFolder()); }

    Process start(const QStringList &arguments, const QString &dataFolder, bool hasRuntimeFolder)
    {
        QProcessEnvironment variables = environment();
        variables.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
        variables.insert(u"XDG_DATA_HOME"_s, dataFolder);
        if (hasRuntimeFolder)
            variables.insert(u"XDG_RUNTIME_DIR"_s, runtimeFolder());
        auto process = std::make_unique<QProcess>();
        process->setProcessEnvironment(variables);
        process->setStandardInputFile(QProcess::nullDevice());
        process->start(QStringLiteral(CLIPWREN_PROGRAM), arguments);
        EXPECT_TRUE(process->waitForStarted());
        return process;
    }
    Process open(const QString &dataFolder) { return start({}, dataFolder, true); }
    Process open() { return open(dataFolder()); }
    /// Without the folder for sockets, as from a timer or over a network.
    Process save(const QString &page = u"hls"_s)
    {
        return start({u"save"_s, u"--format=macCompatible"_s,
                      m_site.address(u"/watch?v="_s + markedPage(page))},
                     dataFolder(), false);
    }

    static bool answers(const QString &dataFolder)
    {
        return QTest::qWaitFor(
            [&] {
                QLocalSocket socket;
                socket.connectToServer(dataFolder + u"/Clipwren/socket"_s);
                return socket.waitForConnected(100);
            },
            20'000);
    }
    bool answers() const { return answers(dataFolder()); }
    static bool opens(const Process &process, const QString &path)
    {
        const QDir descriptors(u"/proc/%1/fd"_s.arg(process->processId()));
        return std::ranges::any_of(
            descriptors.entryInfoList(QDir::NoDotAndDotDot | QDir::AllEntries),
            [&](const QFileInfo &each) { return each.symLinkTarget() == path; });
    }
    static int exitStatus(const Process &process)
    {
        EXPECT_TRUE(process->state() == QProcess::NotRunning || process->waitForFinished(60'000));
        return process->exitStatus() == QProcess::NormalExit ? process->exitCode() : -1;
    }
    /// Asks the window to close.
    static int closed(const Process &process)
    {
        process->terminate();
        return exitStatus(process);
    }

    void openAndClose()
    {
        const Process window = open();
        EXPECT_TRUE(answers());
        EXPECT_EQ(closed(window), 0);
    }

    QString dataFolder() const { return home() + u"/data"_s; }
    QString runtimeFolder() const { return home() + u"/runtime"_s; }
    QString libraryFolder() const { return dataFolder() + u"/Clipwren"_s; }
    void expectListsOnly() const
    {
        EXPECT_EQ(QDir(libraryFolder()).entryList(QDir::Files | QDir::System | QDir::Hidden),
                  (QStringList{u"downloads.json"_s, u"history.json"_s, u"lock"_s}));
    }
    qsizetype recordCount() const { return DownloadStore(libraryFolder()).records().size(); }

private:
    SampleSite m_site;
};

TEST_F(WindowProgramTest, takesASaveIntoItsOwnLibraryWhateverTheEnvironment)
{
    const Process window = open();
    ASSERT_TRUE(answers());
    const QString otherData = home() + u"/other"_s;
    const Process otherWindow = open(otherData);
    ASSERT_TRUE(answers(otherData));

    const Process saving = save();
    EXPECT_EQ(exitStatus(saving), 0) << saving->readAllStandardError().toStdString();
    EXPECT_TRUE(saving->readAllStandardOutput().endsWith(".mp4\n"));
    EXPECT_EQ(recordCount(), 1);
    EXPECT_FALSE(QFile::exists(otherData + u"/Clipwren/downloads.json"_s));
    EXPECT_EQ(closed(window), 0);
    EXPECT_EQ(closed(otherWindow), 0);
    expectListsOnly();
}

TEST_F(WindowProgramTest, saysWhenTheListCannotBeWritten)
{
    const auto expectSentence = [&](const char *part) {
        QElapsedTimer clock;
        clock.start();
        const Process saving = save();
        EXPECT_EQ(exitStatus(saving), 1);
        EXPECT_LT(clock.elapsed(), 25'000) << "nobody is waited for";
        EXPECT_EQ(saving->readAllStandardOutput(), "");
        const std::string said = saving->readAllStandardError().toStdString();
        EXPECT_THAT(said, HasSubstr("The file is saved as “" + downloadsFolder().toStdString()));
        EXPECT_THAT(said, HasSubstr(part));
    };
    ASSERT_TRUE(QFile(dataFolder()).open(QIODevice::WriteOnly));
    expectSentence("but it is not in the list of files: Not a directory.");
    QFile::remove(dataFolder());
    ASSERT_TRUE(QDir().mkpath(libraryFolder() + u"/downloads.json"_s));
    expectSentence("The next start of Clipwren tries again.");

    QDir().rmdir(libraryFolder() + u"/downloads.json"_s);
    openAndClose();
    EXPECT_EQ(recordCount(), 1);
}

TEST_F(WindowProgramTest, opensOnceHoweverOftenItIsStarted)
{
    std::array<Process, 3> starts;
    for (Process &each : starts)
        each = open();
    const auto running = [&] {
        return std::ranges::count_if(
            starts, [](const Process &each) { return each->state() == QProcess::Running; });
    };
    ASSERT_TRUE(answers());
    EXPECT_TRUE(QTest::qWaitFor([&] { return running() == 1; }, 20'000));
    for (const Process &each : starts) {
        if (each->state() == QProcess::Running)
            each->kill();
        else
            EXPECT_EQ(exitStatus(each), 0) << each->readAllStandardError().toStdString();
        each->waitForFinished();
    }

    // The socket and the lock of the one that was killed are in nobody's way.
    EXPECT_TRUE(QFile::exists(libraryFolder() + u"/socket"_s));
    const Process next = open();
    ASSERT_TRUE(answers());
    QLocalSocket silent;
    silent.connectToServer(libraryFolder() + u"/socket"_s);
    QLocalSocket garbage;
    garbage.connectToServer(libraryFolder() + u"/socket"_s);
    garbage.write("{\"saved\":1}\ngarbage");
    EXPECT_EQ(exitStatus(open()), 0);
    EXPECT_EQ(closed(next), 0);
}

TEST_F(WindowProgramTest, anInterruptKeepsARecordThatNobodyTakesForTheNextStart)
{
    std::optional<LibraryLock> silent(libraryFolder());
    const Process saving = save();
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return opens(saving, libraryFolder() + u"/lock"_s); }, 60'000));
    saving->terminate();
    EXPECT_EQ(exitStatus(saving), 0) << saving->readAllStandardError().toStdString();
    EXPECT_TRUE(saving->readAllStandardOutput().endsWith(".mp4\n"));
    EXPECT_EQ(recordCount(), 0);
    silent.reset();
    openAndClose();
    EXPECT_EQ(recordCount(), 1);
}

TEST_F(WindowProgramTest, aKillAtAnyMomentLosesNoRecordAndPilesUpNothing)
{
    ASSERT_EQ(exitStatus(save()), 0);
    qsizetype known = 1;
    // Such as CLIPWREN_KILLS=100 for a long run.
    const int kills = std::max(4, qEnvironmentVariableIntValue("CLIPWREN_KILLS"));
    for (int round = 0; round < kills; ++round) {
        const Process window = open();
        const Process saving = save();
        // A save takes two seconds or so.
        QTest::qWait(QRandomGenerator::global()->bounded(2'500));
        const bool isSaveKilled = round % 2 == 1;
        (isSaveKilled ? saving : window)->kill();
        const int status = exitStatus(saving);
        EXPECT_EQ(status, isSaveKilled ? status : 0)
            << saving->readAllStandardError().toStdString();
        window->kill();
        window->waitForFinished();
        const qsizetype found = recordCount();
        EXPECT_TRUE(found == known + 1 || (isSaveKilled && found == known)) << found;
        known = found;
        // What a killed save leaves running ends by itself.
        EXPECT_TRUE(QTest::qWaitFor([&] { return processes().isEmpty(); }, 30'000));
    }
    openAndClose();
    expectListsOnly();
}

} // namespace
} // namespace clipwren::test
