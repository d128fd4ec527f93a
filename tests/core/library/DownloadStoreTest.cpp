#include "core/library/DownloadStore.h"

#include "support/LibraryFixture.h"

#include <QCoreApplication>
#include <QSignalSpy>

#include <limits>

namespace clipwren {
namespace {

using test::bareRecord;
using test::fullRecord;

const QString fileName = QStringLiteral("downloads.json");

class DownloadStoreTest : public test::LibraryFixture {
protected:
    QList<DownloadRecord> reloaded() const { return DownloadStore(folder()).records(); }
};

TEST_F(DownloadStoreTest, writesSortedKeysAndLeavesAbsentOnesOut)
{
    DownloadRecord record = fullRecord(QStringLiteral("Title \"é\" 😀\n"));
    record.id = QUuid(QStringLiteral("e621e1f8-c36c-495a-93fc-0c247a3e6e5f"));
    record.createdAt = QDateTime(QDate(2026, 3, 1), QTime(14, 5, 9), Qt::UTC);
    record.trimEnd.reset();
    DownloadStore(folder()).add(record);

    EXPECT_EQ(readFile(fileName).toStdString(), R"([
    {
        "createdAt": "2026-03-01T14:05:09Z",
        "durationSeconds": 212.5,
        "filePath": "/home/a/Videos/Title \"é\" 😀\n.mp4",
        "id": "E621E1F8-C36C-495A-93FC-0C247A3E6E5F",
        "sourceURL": "https://example.org/watch?a=1&b=2",
        "thumbnailURL": "https://i.example.org/1.jpg",
        "title": "Title \"é\" 😀\n",
        "trimStart": 0.30000000000000004
    }
]
)");
}

TEST_F(DownloadStoreTest, readsBackWhatItHolds)
{
    DownloadRecord odd = fullRecord(QString(QChar(0xd800)) + QChar(0) + u'/');
    odd.durationSeconds = std::numeric_limits<double>::infinity();
    odd.trimStart = std::numeric_limits<double>::quiet_NaN();
    odd.trimEnd = std::numeric_limits<double>::max();
    odd.createdAt = QDateTime(QDate(2026, 3, 1), QTime(23, 5, 9, 999), Qt::OffsetFromUTC, -3600);
    DownloadRecord withoutTime = bareRecord(QString());
    withoutTime.createdAt = {};
    DownloadRecord beyondCalendar = bareRecord(QStringLiteral("late"));
    beyondCalendar.createdAt = QDateTime(QDate(10000, 1, 1), QTime(0, 0), Qt::UTC);

    DownloadStore store(folder());
    for (const auto &record : {fullRecord(QStringLiteral("A")), bareRecord(QStringLiteral("B")),
                               odd, withoutTime, beyondCalendar})
        store.add(record);

    ASSERT_EQ(store.records().size(), 5);
    EXPECT_EQ(reloaded(), store.records());
    EXPECT_EQ(store.records()[2].createdAt, QDateTime(QDate(2026, 3, 2), QTime(0, 5, 9), Qt::UTC));
    EXPECT_EQ(qHash(reloaded()[2]), qHash(store.records()[2]));
}

TEST_F(DownloadStoreTest, changesOneRecordAmongMany)
{
    DownloadStore store(folder());
    QSignalSpy changes(&store, &DownloadStore::changed);
    DownloadRecord a = bareRecord(QStringLiteral("A"));
    const DownloadRecord b = bareRecord(QStringLiteral("B"));
    const DownloadRecord c = bareRecord(QStringLiteral("C"));
    for (const auto &record : {a, b, c})
        store.add(record);
    EXPECT_EQ(reloaded(), (QList{c, b, a}));

    a.filePath = QStringLiteral("/elsewhere.mp4");
    store.update(a);
    EXPECT_EQ(reloaded(), (QList{c, b, a}));

    // The argument lies in the list that is being changed.
    store.remove(store.records()[0]);
    EXPECT_EQ(reloaded(), (QList{b, a}));
    EXPECT_EQ(changes.count(), 5);

    store.clear();
    EXPECT_EQ(
        QString::fromUtf8(readFile(fileName)).remove(QRegularExpression(QStringLiteral("\\s"))),
        QStringLiteral("[]"));
    EXPECT_TRUE(reloaded().isEmpty());
}

TEST_F(DownloadStoreTest, savesForAnUnknownRecordOnlyWhenRemoving)
{
    DownloadStore store(folder());
    store.add(bareRecord(QStringLiteral("A")));
    const QByteArray saved = readFile(fileName);
    const auto records = store.records();
    writeFile(fileName, "changed outside");

    store.update(bareRecord(QStringLiteral("B")));
    EXPECT_EQ(readFile(fileName), "changed outside");
    store.remove(bareRecord(QStringLiteral("B")));
    EXPECT_EQ(readFile(fileName), saved);
    EXPECT_EQ(store.records(), records);
}

TEST_F(DownloadStoreTest, acceptsAndRejectsWholeFiles)
{
    const QByteArray good = R"([{"trimStart": null, "title": "t", "id":
        "e621e1f8-C36C-495A-93FC-0C247A3E6E5F", "filePath": "\/f", "sourceURL": "s",
        "later": {}, "durationSeconds": 5, "createdAt": "2024-02-29T14:05:09Z"}])";
    struct Case {
        const char *replace;
        const char *with;
        bool accepted = false;
    };
    const Case cases[] = {
        {"", "", true},
        {"\"durationSeconds\": 5", "\"durationSeconds\": 2e1", true},
        {"[{", "\xef\xbb\xbf\r\n\t[ {", true},
        {"\"later\": {}", "\"later\": [{\"}]\\\\\\\"{\": {}}, \"{\"]", true},
        {"[{", "[{},{"},
        {"[{", "[,{"},
        {"[{", "[1,{"},
        {"[{", "[[{}],{"},
        {"[{", "[{\"\\\"},{"},
        {"[{", "{"},
        {"[{", ""},
        {"}]", "},]"},
        {"}]", "}"},
        {"}]", "]"},
        {"}]", "}}]"},
        {"}]", "}]]"},
        {"}]", "}] x"},
        {"\"later\": {}", "\"later\": {]}"},
        {"\"later\": {}", "\"later\": {\"a\": tru}"},
        {"\"title\": \"t\"", "\"title\": 1"},
        {"\"title\": \"t\"", "\"title\": null"},
        {"\"title\"", "\"Title\""},
        {"\"durationSeconds\": 5", "\"durationSeconds\": \"5\""},
        {"\"title\": \"t\"", "\"title\": \"\xff\""},
        // identifiers
        {"e621e1f8", "{e621e1f8"},
        {"e621e1f8-", "e621e1f8"},
        {"e621e1f8", "g621e1f8"},
        {"3E6E5F", "3E6E5F00"},
        {"3E6E5F", "3E6E5"},
        // times
        {"\"createdAt\"", "\"createdOn\""},
        {"2024-02-29T", "2023-02-28T", true},
        {"2024-02-29T", "2023-02-29T"},
        {"2024-02-29T", "2024-04-31T"},
        {"2024-02-29T", "2024-00-10T"},
        {"2024-02-29T", "0000-01-01T"},
        {"2024-02-29T", "2024-2-29T"},
        {"2024-02-29T", "2024-02-29 "},
        {"14:05:09Z", "24:00:00Z"},
        {"14:05:09Z", "14:05:60Z"},
        {"14:05:09Z", "14:05:09.5Z"},
        {"14:05:09Z", "14:05:09+00:00"},
        {"14:05:09Z", "14:05:09"},
        {"14:05:09Z", "14:05:09z"},
        {"14:05:09Z", "14:05:0\xd9\xa9Z"}, // an Arabic nine
        {"\"2024-02-29T14:05:09Z\"", "1709215509"},
    };
    for (const auto &[replace, with, accepted] : cases) {
        SCOPED_TRACE(std::string(replace) + " -> " + with);
        QByteArray content = good;
        if (*replace)
            content.replace(replace, with);
        writeFile(fileName, content);
        DownloadStore store(folder());
        EXPECT_EQ(store.records().size(), accepted ? 1 : 0);
        EXPECT_EQ(readFile(fileName), content);
    }
    writeFile(fileName, "[ ]");
    EXPECT_TRUE(reloaded().isEmpty());
}

TEST_F(DownloadStoreTest, startsWhereNoFolderCanBe)
{
    writeFile(QStringLiteral("file"), "in the way");
    DownloadStore store(path(QStringLiteral("file/Clipwren")));
    store.add(bareRecord(QStringLiteral("A")));
    EXPECT_EQ(store.records().size(), 1);
    EXPECT_EQ(readFile(QStringLiteral("file")), "in the way");
}

TEST_F(DownloadStoreTest, findsItsFoldersWhateverTheApplicationIsCalled)
{
    qputenv("XDG_DATA_HOME", QFile::encodeName(folder()));
    QCoreApplication::setOrganizationName(QStringLiteral("Somebody"));
    EXPECT_EQ(defaultLibraryFolder(), path(QStringLiteral("Clipwren")));
    QCoreApplication::setOrganizationName({});
    qunsetenv("XDG_DATA_HOME");
    EXPECT_TRUE(DownloadStore::defaultDownloadDirectory().endsWith(QStringLiteral("/Clipwren")));
}

} // namespace
} // namespace clipwren
