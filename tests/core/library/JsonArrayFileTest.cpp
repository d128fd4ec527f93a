#include "core/library/DownloadStore.h"
#include "core/process/FileDescriptor.h"
#include "support/FileFault.h"
#include "support/LibraryFixture.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRandomGenerator>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;
using test::bareRecord;
using test::fullRecord;

const QString fileName = u"downloads.json"_s;
const QString rejected = u"downloads.json.rejected"_s;

using JsonArrayFileTest = test::LibraryFixture;

/// A child that writes a byte once it has loaded the list, then adds record after record and
/// writes one after each save, until it is killed.
pid_t startAdding(const QString &folder, Pipe &saved)
{
    const pid_t child = fork();
    if (child == 0) {
        DownloadStore store(folder);
        while (write(saved.writeEnd.get(), "x", 1) == 1)
            store.add(fullRecord(u"added"_s));
        _exit(1);
    }
    saved.writeEnd.close();
    return child;
}

TEST_F(JsonArrayFileTest, isWholeWheneverTheProcessIsKilled)
{
    constexpr qsizetype countAtStart = 200;
    QElapsedTimer oneSave;
    oneSave.start();
    JsonArrayFile(folder(), fileName)
        .save(QList<DownloadRecord>(countAtStart, fullRecord(u"old"_s)));
    // The first save of a process takes longest; a busy machine or a sanitizer makes all slow.
    const auto fewSaves = static_cast<quint32>(std::max<qint64>(40, 3 * oneSave.elapsed()));
    qsizetype known = countAtStart;
    for (int round = 0; round < 100; ++round) {
        Pipe saved = Pipe::open();
        const pid_t child = startAdding(folder(), saved);
        char byte = 0;
        ASSERT_EQ(read(saved.readEnd.get(), &byte, 1), 1);
        // Anywhere within the first saves.
        usleep(QRandomGenerator::global()->bounded(fewSaves * 1000));
        kill(child, SIGKILL);
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status));

        while (read(saved.readEnd.get(), &byte, 1) == 1)
            ++known;
        const qsizetype found = DownloadStore(folder()).records().size();
        ASSERT_TRUE(found == known || found == known + 1) << found << " of " << known;
        known = found;
    }
    EXPECT_GT(known, countAtStart);
    DownloadStore(folder()).clear();
    EXPECT_EQ(QDir(folder()).entryList(QDir::Files), QStringList{fileName}) << "of all those kills";
}

TEST_F(JsonArrayFileTest, keepsTheOldFileWhenTheDiskIsFull)
{
    DownloadStore store(folder());
    store.add(bareRecord(u"A"_s));
    const QByteArray before = readFile(fileName);
    const QStringList filesBefore = QDir(folder()).entryList(QDir::Files);

    // No file may grow beyond what is there now.
    rlimit limit{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &limit), 0);
    const rlimit full{static_cast<rlim_t>(before.size()), limit.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &full), 0);
    store.add(bareRecord(u"B"_s));
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, handler);

    EXPECT_EQ(store.records().size(), 2);
    EXPECT_EQ(readFile(fileName), before);
    EXPECT_EQ(QDir(folder()).entryList(QDir::Files), filesBefore);
    EXPECT_EQ(store.saveError(), QString::fromLocal8Bit(std::strerror(EFBIG)));

    store.saveAgain();
    EXPECT_EQ(store.saveError(), std::nullopt);
    EXPECT_EQ(DownloadStore(folder()).records(), store.records());
}

TEST_F(JsonArrayFileTest, losesNothingWhicheverCallFails)
{
    const QByteArray contents[] = {
        QJsonDocument(QJsonArray{fullRecord(u"old"_s).toJson()}).toJson(), "not JSON"};
    for (const QByteArray &content : contents) {
        for (const int error : {ENOSPC, EACCES, EIO}) {
            int failures = 0;
            bool isFault = true;
            for (int call = 1; isFault; ++call) {
                SCOPED_TRACE(std::to_string(call) + ": " + std::strerror(error));
                for (const QString &name : QDir(folder()).entryList(QDir::Files))
                    QFile::remove(path(name));
                writeFile(fileName, content);
                DownloadStore store(folder());
                const DownloadRecord added = bareRecord(u"added"_s);
                {
                    const test::FileFault fault(call, error);
                    store.add(added);
                    isFault = test::FileFault::happened();
                }
                failures += store.saveError() ? 1 : 0;
                EXPECT_TRUE(store.saveError()
                                ? readFile(fileName) == content
                                : DownloadStore(folder()).records() == store.records())
                    << "what is said is true";
                store.saveAgain();
                EXPECT_EQ(store.saveError(), std::nullopt);
                EXPECT_EQ(DownloadStore(folder()).records(), store.records());
                EXPECT_EQ(store.records().first(), added);
                const bool isKept = readFile(rejected) == content;
                EXPECT_EQ(isKept, content == "not JSON");
                EXPECT_EQ(QDir(folder()).entryList(QDir::Files).size(), isKept ? 2 : 1);
            }
            EXPECT_GE(failures, 4) << "make, write, flush and rename the new file";
        }
    }
}

TEST_F(JsonArrayFileTest, isForTheUserAlone)
{
    const auto mode = [this](const QString &name) {
        constexpr auto all = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup
            | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
        return QFile::permissions(path(name)) & all;
    };
    for (const char *content : {"[]", "not JSON"}) {
        writeFile(fileName, content);
        QFile::setPermissions(path(fileName),
                              QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
        DownloadStore store(folder());
        EXPECT_EQ(mode(fileName), QFile::ReadOwner) << "from the first start on";
        store.add(bareRecord(u"A"_s));
        EXPECT_EQ(mode(fileName), QFile::ReadOwner | QFile::WriteOwner);
    }
    EXPECT_EQ(mode(rejected), QFile::ReadOwner | QFile::WriteOwner);
}

TEST_F(JsonArrayFileTest, keepsARejectedFileBesideTheNewOne)
{
    for (int start = 0; start < 2; ++start)
        DownloadStore(folder()).add(bareRecord(u"A"_s));
    EXPECT_EQ(QDir(folder()).entryList(QDir::Files), QStringList{fileName}) << "but no good one";
    for (const char *content : {"", "not JSON", R"([{"title": "no more"}])"}) {
        writeFile(fileName, content);
        DownloadStore store(folder());
        EXPECT_TRUE(store.records().isEmpty());
        store.add(bareRecord(u"A"_s));
        store.add(bareRecord(u"B"_s));
        EXPECT_EQ(DownloadStore(folder()).records(), store.records());
    }
    EXPECT_EQ(readFile(rejected), "");
    EXPECT_EQ(readFile(rejected + u".2"_s), "not JSON");
    EXPECT_EQ(readFile(rejected + u".3"_s), R"([{"title": "no more"}])");
    EXPECT_EQ(QDir(folder()).entryList(QDir::Files).size(), 4);
}

TEST_F(JsonArrayFileTest, writesThroughASymbolicLink)
{
    ASSERT_TRUE(QDir(folder()).mkdir(u"elsewhere"_s));
    const QString target = u"elsewhere/list.json"_s;
    ASSERT_TRUE(QFile::link(target, path(fileName)));
    const auto isLink = [&] { return QFileInfo(path(fileName)).isSymLink(); };

    DownloadStore(folder()).add(bareRecord(u"A"_s)); // the link leads nowhere yet
    EXPECT_TRUE(isLink());
    EXPECT_TRUE(readFile(target).contains("\"A\""));

    writeFile(target, "bad");
    DownloadStore(folder()).add(bareRecord(u"B"_s));
    EXPECT_TRUE(isLink());
    EXPECT_TRUE(readFile(target).contains("\"B\""));
    EXPECT_EQ(readFile(rejected), "bad");
}

TEST_F(JsonArrayFileTest, loadsNoNamedPipeAndNothingWithoutAFolder)
{
    DownloadStore inMemory{QString()};
    inMemory.add(bareRecord(u"A"_s));
    EXPECT_EQ(inMemory.saveError(), std::nullopt);
    EXPECT_TRUE(DownloadStore(QString()).records().isEmpty());
    ASSERT_EQ(mkfifo(QFile::encodeName(path(fileName)).constData(), 0600), 0);
    EXPECT_TRUE(DownloadStore(folder()).records().isEmpty());
}

/// Gives up root's right to read everything, for as long as it lives.
class OrdinaryUser {
public:
    explicit OrdinaryUser(const QString &folder) : m_isRoot(geteuid() == 0)
    {
        constexpr uid_t nobody = 65534;
        if (m_isRoot
            && (chown(QFile::encodeName(folder).constData(), nobody, nobody) != 0
                || seteuid(nobody) != 0))
            ADD_FAILURE() << "cannot become an ordinary user";
    }
    ~OrdinaryUser()
    {
        if (m_isRoot && seteuid(0) != 0)
            ADD_FAILURE() << "cannot become root again";
    }
    OrdinaryUser(const OrdinaryUser &) = delete;
    OrdinaryUser &operator=(const OrdinaryUser &) = delete;

private:
    bool m_isRoot;
};

TEST_F(JsonArrayFileTest, losesNothingOfAFileItMayNotRead)
{
    const OrdinaryUser user(folder());
    writeFile(fileName, "secret");
    QFile::setPermissions(path(fileName), {});
    DownloadStore store(folder());
    store.add(bareRecord(u"A"_s));
    EXPECT_EQ(DownloadStore(folder()).records(), store.records());
    EXPECT_EQ(readFile(rejected), "secret");
}

TEST_F(JsonArrayFileTest, leavesARejectedFileAloneThatItCannotKeep)
{
    const OrdinaryUser user(folder());
    writeFile(fileName, "bad");
    QFile::setPermissions(folder(), QFile::ReadOwner | QFile::ExeOwner);
    DownloadStore store(folder());
    store.add(bareRecord(u"A"_s));
    EXPECT_EQ(readFile(fileName), "bad");
    EXPECT_TRUE(store.saveError());

    QFile::setPermissions(folder(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    store.add(bareRecord(u"B"_s));
    EXPECT_EQ(DownloadStore(folder()).records(), store.records());
    EXPECT_EQ(readFile(rejected), "bad");
}

} // namespace
} // namespace clipwren
