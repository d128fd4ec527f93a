#include "app/instance/LibraryClaim.h"
#include "app/instance/LibraryHandOver.h"
#include "core/library/DownloadStore.h"
#include "core/library/HistoryStore.h"
#include "core/tasks/BackgroundTask.h"
#include "support/LibraryFixture.h"
#include "support/Printing.h"

#include <QDir>
#include <QLocalSocket>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <array>
#include <ctime>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class InstanceTest : public testing::Test {
protected:
    ~InstanceTest() override { QDir::setCurrent(u"/"_s); }

    QTemporaryDir folder;

    // Longer than the address of a socket has room for.
    QString libraryFolder() const { return folder.filePath(QString(120, u'l')); }
    QString inLibrary(const QString &name) const { return libraryFolder() + u'/' + name; }

    static InstanceMessage::Saved saved(const QString &title)
    {
        return {test::bareRecord(title), title};
    }
    static InstanceMessage show(const QString &address)
    {
        InstanceMessage message;
        message.show = InstanceMessage::Show{.address = address, .activationToken = u"token"_s};
        return message;
    }

    /// Runs what blocks on a thread of its own while this one serves events.
    template <typename Work> static auto besideEvents(Work work)
    {
        std::optional<decltype(work())> result;
        const auto task = BackgroundTask::start(
            [work](const std::stop_token &, const BackgroundTask::Post &) { return work(); },
            [&](const decltype(work()) &value) { result = value; },
            [](const std::exception_ptr &) {});
        EXPECT_TRUE(QTest::qWaitFor([&] { return result.has_value(); }, 20'000));
        return result.value_or(decltype(work()){});
    }
    InstanceAnswer send(const InstanceMessage &message) const
    {
        return besideEvents(
            [=, this] { return sendToRunningInstance(message, libraryFolder(), 10s); });
    }
    HandOver handOver(const InstanceMessage::Saved &record,
                      std::chrono::milliseconds patience = 10s) const
    {
        return besideEvents([=, this] { return handOverSaved(record, libraryFolder(), patience); });
    }

    /// Connects to the socket of the library, by a short name.
    void connectTo(QLocalSocket &socket) const
    {
        QDir::setCurrent(libraryFolder());
        socket.connectToServer(u"/proc/self/cwd/socket"_s);
        ASSERT_TRUE(
            QTest::qWaitFor([&] { return socket.state() == QLocalSocket::ConnectedState; }));
    }
    static bool isSentAway(QLocalSocket &socket)
    {
        return QTest::qWaitFor([&] { return socket.state() == QLocalSocket::UnconnectedState; })
            && socket.readAll().isEmpty();
    }
    QStringList titles() const
    {
        QStringList result;
        const DownloadStore store(libraryFolder());
        for (const DownloadRecord &record : store.records())
            result << record.title;
        return result;
    }
};

TEST_F(InstanceTest, onlyOneHoldsTheLibrary)
{
    std::optional<LibraryLock> first(libraryFolder());
    EXPECT_TRUE(first->isHeld());
    const LibraryLock second(libraryFolder(), 30ms);
    EXPECT_FALSE(second.isHeld());
    EXPECT_TRUE(second.isHeldElsewhere());
    first.reset();
    EXPECT_TRUE(LibraryLock(libraryFolder()).isHeld());

    // Nobody holds what cannot be written to.
    QFile file(folder.filePath(u"file"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    const LibraryLock none(file.fileName());
    EXPECT_FALSE(none.isHeld());
    EXPECT_FALSE(none.isHeldElsewhere());
    EXPECT_EQ(none.error(), u"Not a directory"_s);
}

TEST_F(InstanceTest, aSecondStartReachesTheFirst)
{
    const LibraryLock lock(libraryFolder());
    EXPECT_EQ(send(show(u"https://nobody.example"_s)), InstanceAnswer::None);
    // What a process that is gone leaves behind.
    QFile(inLibrary(u"socket"_s)).open(QIODevice::WriteOnly);
    QStringList received;
    const InstanceServer server(libraryFolder(), [&](const InstanceMessage &message) {
        received << message.show.value().address << message.show->activationToken;
        return message.show->address.startsWith(u"https");
    });
    EXPECT_EQ(send(show(u"https://site.example/ü\n"_s)), InstanceAnswer::Done);
    EXPECT_EQ(received, (QStringList{u"https://site.example/ü\n"_s, u"token"_s}));
    EXPECT_EQ(send(show(u"nonsense"_s)), InstanceAnswer::Failed);
    struct stat status { };
    ASSERT_EQ(::stat(QFile::encodeName(inLibrary(u"socket"_s)).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 077, 0U);
    EXPECT_EQ(claimLibrary(libraryFolder(), {}, 1ms, {}).outcome, LibraryClaim::Outcome::Silent);
}

TEST_F(InstanceTest, waitsForALockThatIsSoonFree)
{
    std::optional<LibraryLock> save(libraryFolder());
    QTimer::singleShot(300, [&] { save.reset(); });
    EXPECT_EQ(besideEvents([this] {
                  return claimLibrary(libraryFolder(), show(u"https://x"_s), 10s).outcome;
              }),
              LibraryClaim::Outcome::Held);
}

TEST_F(InstanceTest, sendsAwayWhoSaysNothingOfUse)
{
    const LibraryLock lock(libraryFolder());
    int received = 0;
    const InstanceServer server(
        libraryFolder(), [&](const InstanceMessage &) { return ++received > 0; }, 300ms);
    for (const QByteArray &text :
         {QByteArray("garbage\n"), QByteArray("{\"saved\":{}}\n"), QByteArray("[]\n"),
          QByteArray("\0\xff\n", 3), QByteArray(2 * 1024 * 1024, 'x'), QByteArray("{\"show\":")}) {
        QLocalSocket socket;
        connectTo(socket);
        socket.write(text);
        EXPECT_TRUE(isSentAway(socket)) << text.left(20).toStdString();
    }
    EXPECT_EQ(received, 0);

    // More of them than are let in at once; who has something to say waits for its turn.
    std::array<QLocalSocket, 40> silent;
    for (QLocalSocket &socket : silent)
        connectTo(socket);
    EXPECT_EQ(send(show(u"https://site.example"_s)), InstanceAnswer::Done);
    EXPECT_EQ(received, 1);
}

TEST_F(InstanceTest, isQuietWithoutDescriptors)
{
    const LibraryLock lock(libraryFolder());
    const InstanceServer server(libraryFolder(), [](const InstanceMessage &) { return true; });
    QLocalSocket caller;
    connectTo(caller); // which is not accepted yet
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
    const FileDescriptor next(::dup(STDIN_FILENO));
    const rlimit none{static_cast<rlim_t>(next.get()), before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
    const std::clock_t start = std::clock();
    QTest::qWait(300);
    const std::clock_t used = std::clock() - start;
    setrlimit(RLIMIT_NOFILE, &before);
    EXPECT_LT(used, CLOCKS_PER_SEC / 10);
}

TEST_F(InstanceTest, savesFromManyProcessesAllEndUpInTheLists)
{
    EXPECT_FALSE(handOver(saved(u"A"_s)).failure);

    // The application has the lists open.
    const LibraryLock lock(libraryFolder());
    DownloadStore store(libraryFolder());
    HistoryStore history(libraryFolder());
    const InstanceServer server(libraryFolder(), [&](const InstanceMessage &message) {
        // Whoever got no answer tells it again.
        applySaved(message.saved.value(), store, history);
        return !applySaved(message.saved.value(), store, history);
    });
    const HandOver second = handOver(saved(u"B"_s));
    EXPECT_FALSE(second.failure);
    EXPECT_FALSE(second.isPending);
    EXPECT_EQ(store.records().size(), 2);
    EXPECT_EQ(store.records().first().title, u"B"_s);
    EXPECT_EQ(DownloadStore(libraryFolder()).records(), store.records());
    EXPECT_EQ(history.entries().value(0).downloadCount, 2);
    EXPECT_EQ(history.entries().value(0).title, u"B"_s);
}

TEST_F(InstanceTest, keepsARecordThatNobodyTakesForTheNextStart)
{
    std::optional<LibraryLock> silent(libraryFolder());
    for (const QString &title : {u"A"_s, u"B"_s}) {
        const HandOver result = handOver(saved(title), 50ms);
        EXPECT_FALSE(result.failure);
        EXPECT_TRUE(result.isPending);
    }
    const QStringList pending = QDir(libraryFolder()).entryList({u"pending-*"_s});
    ASSERT_EQ(pending.size(), 2);
    EXPECT_EQ(QFile::permissions(inLibrary(pending.first()))
                  & (QFile::ReadGroup | QFile::ReadOther | QFile::WriteGroup | QFile::WriteOther),
              QFile::Permissions());
    silent.reset();

    // Something that is no record is left alone.
    QFile garbage(inLibrary(u"pending-1.json"_s));
    ASSERT_TRUE(garbage.open(QIODevice::WriteOnly));
    garbage.write("{}");
    garbage.close();
    static QString said;
    qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext &, const QString &text) { said = text; });
    EXPECT_FALSE(handOver(saved(u"C"_s)).failure);
    qInstallMessageHandler(nullptr);
    EXPECT_TRUE(said.contains(u"pending-1.json")) << said.toStdString();
    EXPECT_EQ(titles(), (QStringList{u"C"_s, u"B"_s, u"A"_s}));
    EXPECT_EQ(QDir(libraryFolder()).entryList({u"pending-*"_s}), QStringList{u"pending-1.json"_s});
}

TEST_F(InstanceTest, saysWhyARecordIsInNoList)
{
    // The list cannot be written.
    ASSERT_TRUE(QDir().mkpath(inLibrary(u"downloads.json"_s)));
    const HandOver unwritable = handOver(saved(u"A"_s));
    EXPECT_TRUE(unwritable.failure && unwritable.failure->contains(u"downloads.json"));
    EXPECT_TRUE(unwritable.isPending);
    QDir().rmdir(inLibrary(u"downloads.json"_s));
    EXPECT_FALSE(handOver(saved(u"B"_s)).failure);
    EXPECT_EQ(titles(), (QStringList{u"B"_s, u"A"_s}));

    {
        const LibraryLock lock(libraryFolder());
        const InstanceServer server(libraryFolder(), [](const InstanceMessage &) { return false; });
        EXPECT_TRUE(handOver(saved(u"C"_s)).failure);
    }

    // There can be no library, so that nobody is waited for.
    QFile file(folder.filePath(u"file"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    const HandOver nowhere = handOverSaved(saved(u"D"_s), file.fileName(), 1h);
    EXPECT_EQ(nowhere.failure, u"Not a directory"_s);
    EXPECT_FALSE(nowhere.isPending);
}

} // namespace
} // namespace clipwren
