#include "app/instance/InstanceChannel.h"
#include "app/instance/LibraryHandOver.h"
#include "app/instance/LibraryLock.h"
#include "core/library/DownloadStore.h"
#include "core/library/HistoryStore.h"
#include "core/tasks/BackgroundTask.h"
#include "support/LibraryFixture.h"

#include <QLocalSocket>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class InstanceTest : public testing::Test {
protected:
    QTemporaryDir folder;

    QString libraryFolder() const { return folder.filePath(u"library"_s); }
    QString socketPath() const { return folder.filePath(u"socket"_s); }

    static InstanceMessage::Saved saved(const QString &title)
    {
        return {test::bareRecord(title), title};
    }

    /// Runs what blocks on a thread of its own while this one serves events.
    static bool besideEvents(std::function<bool()> work)
    {
        std::optional<bool> result;
        const auto task = BackgroundTask::start(
            [work](const std::stop_token &, const BackgroundTask::Post &) { return work(); },
            [&](bool value) { result = value; }, [](const std::exception_ptr &) {});
        EXPECT_TRUE(QTest::qWaitFor([&] { return result.has_value(); }, 20'000));
        return result.value_or(false);
    }
};

TEST_F(InstanceTest, OnlyOneHoldsTheLibrary)
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
}

TEST_F(InstanceTest, ASecondStartReachesTheFirst)
{
    // What a process that is gone leaves behind.
    QFile(socketPath()).open(QIODevice::WriteOnly);
    InstanceServer server(socketPath());
    QStringList received;
    QObject::connect(&server, &InstanceServer::received, [&](const InstanceMessage &message) {
        received << message.show.value().address << message.show->activationToken;
    });
    InstanceMessage message;
    message.show = InstanceMessage::Show{u"https://site.example/ü\n"_s, u"token"_s};
    EXPECT_FALSE(sendToRunningInstance(message, folder.filePath(u"nobody"_s), 50ms));
    EXPECT_TRUE(besideEvents([&] { return sendToRunningInstance(message, socketPath()); }));
    EXPECT_EQ(received, (QStringList{u"https://site.example/ü\n"_s, u"token"_s}));
}

TEST_F(InstanceTest, IgnoresWhatIsNoMessage)
{
    InstanceServer server(socketPath());
    QObject::connect(&server, &InstanceServer::received, [] { ADD_FAILURE(); });
    for (const char *text : {"garbage\n", "{\"saved\":{}}\n", "[]\n"}) {
        QLocalSocket socket;
        socket.connectToServer(socketPath());
        ASSERT_TRUE(
            QTest::qWaitFor([&] { return socket.state() == QLocalSocket::ConnectedState; }));
        socket.write(text);
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return socket.state() == QLocalSocket::UnconnectedState; }));
        EXPECT_TRUE(socket.readAll().isEmpty());
    }
}

TEST_F(InstanceTest, SavesFromManyProcessesAllEndUpInTheLists)
{
    EXPECT_TRUE(handOverSaved(saved(u"A"_s), libraryFolder(), socketPath()));

    // The application has the lists open.
    const LibraryLock lock(libraryFolder());
    DownloadStore store(libraryFolder());
    HistoryStore history(libraryFolder());
    InstanceServer server(socketPath());
    QObject::connect(&server, &InstanceServer::received, [&](const InstanceMessage &message) {
        // Whoever got no answer tells it again.
        applySaved(message.saved.value(), store, history);
        applySaved(message.saved.value(), store, history);
    });
    EXPECT_TRUE(besideEvents(
        [this] { return handOverSaved(saved(u"B"_s), libraryFolder(), socketPath()); }));
    EXPECT_EQ(store.records().size(), 2);
    EXPECT_EQ(store.records().first().title, u"B"_s);
    EXPECT_EQ(DownloadStore(libraryFolder()).records(), store.records());
    EXPECT_EQ(history.entries().value(0).downloadCount, 2);
    EXPECT_EQ(history.entries().value(0).title, u"B"_s);
}

} // namespace
} // namespace clipwren
