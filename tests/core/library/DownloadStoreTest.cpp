#include "core/library/DownloadStore.h"

#include "core/library/HistoryStore.h"
#include "core/text/BoundedText.h"
#include "support/LibraryFixture.h"

#include <QCoreApplication>
#include <QSignalSpy>

#include <limits>
#include <map>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;
using test::bareRecord;
using test::fullRecord;

const QString fileName = u"downloads.json"_s;

class DownloadStoreTest : public test::LibraryFixture {
protected:
    QList<DownloadRecord> reloaded() const { return DownloadStore(folder()).records(); }
};

TEST_F(DownloadStoreTest, writesSortedKeysAndLeavesAbsentOnesOut)
{
    DownloadRecord record = fullRecord(u"Title \"é\" 😀\n"_s);
    record.id = QUuid(u"e621e1f8-c36c-495a-93fc-0c247a3e6e5f"_s);
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
    DownloadRecord beyondCalendar = bareRecord(u"late"_s);
    beyondCalendar.createdAt = QDateTime(QDate(10000, 1, 1), QTime(0, 0), Qt::UTC);

    DownloadStore store(folder());
    for (const auto &record :
         {fullRecord(u"A"_s), bareRecord(u"B"_s), odd, withoutTime, beyondCalendar})
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
    DownloadRecord a = bareRecord(u"A"_s);
    const DownloadRecord b = bareRecord(u"B"_s);
    const DownloadRecord c = bareRecord(u"C"_s);
    for (const auto &record : {a, b, c})
        store.add(record);
    EXPECT_EQ(reloaded(), (QList{c, b, a}));

    a.filePath = u"/elsewhere.mp4"_s;
    store.update(a);
    EXPECT_EQ(reloaded(), (QList{c, b, a}));

    const QByteArray before = readFile(fileName);
    store.update(bareRecord(u"unknown"_s));
    EXPECT_EQ(store.records(), (QList{c, b, a}));
    EXPECT_EQ(readFile(fileName), before);
    EXPECT_EQ(changes.count(), 4) << "an unknown id changes nothing";

    // The argument lies in the list that is being changed.
    store.remove(store.records()[0]);
    EXPECT_EQ(reloaded(), (QList{b, a}));
    EXPECT_EQ(changes.count(), 5);

    store.clear();
    EXPECT_EQ(readFile(fileName).simplified(), "[ ]");
}

TEST_F(DownloadStoreTest, acceptsAndRejectsWholeFiles)
{
    const QByteArray good = R"([{"trimStart": null, "title": "t", "id":
        "e621e1f8-C36C-495A-93FC-0C247A3E6E5F", "filePath": "\/f", "sourceURL": "s",
        "later": {}, "durationSeconds": 5, "createdAt": "2024-02-29T14:05:09Z"}])";
    // What is replaced, and by what in turn.
    using Replacements = std::map<const char *, std::vector<const char *>>;
    const Replacements accepted{{R"("durationSeconds": 5)", {R"("durationSeconds": 2e1)"}},
                                {"[{", {"[{", "\xef\xbb\xbf\r\n\t[ {"}},
                                {R"("later": {})", {R"("later": [{"}]\\\"{": {}}, "{"])"}},
                                {"2024-02-29", {"2023-02-28"}}};
    const Replacements rejected{
        {"[{", {"[{},{", "[,{", "[1,{", "[[{}],{", R"([{"\"},{)", "{", ""}},
        {"}]", {"},]", "}", "]", "}}]", "}]]", "}] x"}},
        {R"("later": {})", {R"("later": {]})", R"("later": {"a": tru})"}},
        {R"("title": "t")",
         {R"("title": 1)", R"("title": null)", R"("Title": "t")", "\"title\": \"\xff\""}},
        {R"("durationSeconds": 5)", {R"("durationSeconds": "5")"}},
        {"e621e1f8-", {"{e621e1f8-", "e621e1f8", "g621e1f8-"}},
        {"3E6E5F", {"3E6E5F00", "3E6E5"}},
        {"createdAt", {"createdOn"}},
        {"2024-02-29T",
         {"2023-02-29T", "2024-04-31T", "2024-00-10T", "0000-01-01T", "2024-2-29T", "2024-02-29 "}},
        {"14:05:09Z",
         {"24:00:00Z", "14:05:60Z", "14:05:09.5Z", "14:05:09+00:00", "14:05:09", "14:05:09z",
          "14:05:0\xd9\xa9Z"}},
        {R"("2024-02-29T14:05:09Z")", {"1709215509"}}};
    for (const auto &[cases, records] : {std::pair(accepted, 1), std::pair(rejected, 0)}) {
        for (const auto &[replaced, replacements] : cases) {
            for (const char *replacement : replacements) {
                SCOPED_TRACE(std::string(replaced) + " -> " + replacement);
                const QByteArray content = QByteArray(good).replace(replaced, replacement);
                writeFile(fileName, content);
                EXPECT_EQ(reloaded().size(), records);
                EXPECT_EQ(readFile(fileName), content);
            }
        }
    }
    writeFile(fileName, "[ ]");
    EXPECT_TRUE(reloaded().isEmpty());
}

TEST_F(DownloadStoreTest, keepsTheBeginningOfALongTitle)
{
    const QString title(1'000'000, u'x');
    DownloadStore(folder()).add(bareRecord(title));
    EXPECT_EQ(DownloadStore(folder()).records().first().title.size(), longestTitle);
    HistoryStore(folder()).recordDownload(u"https://site.example"_s, title, {}, {});
    EXPECT_EQ(HistoryStore(folder()).entries().first().title.size(), longestTitle);
}

TEST_F(DownloadStoreTest, startsWhereNoFolderCanBe)
{
    writeFile(u"file"_s, "in the way");
    DownloadStore store(path(u"file/Clipwren"_s));
    store.add(bareRecord(u"A"_s));
    EXPECT_EQ(store.records().size(), 1);
    EXPECT_EQ(readFile(u"file"_s), "in the way");
}

TEST_F(DownloadStoreTest, findsItsFolderWhateverTheApplicationIsCalled)
{
    qputenv("XDG_DATA_HOME", QFile::encodeName(folder()));
    QCoreApplication::setOrganizationName(u"Somebody"_s);
    EXPECT_EQ(defaultLibraryFolder(), path(u"Clipwren"_s));
    QCoreApplication::setOrganizationName({});
    qunsetenv("XDG_DATA_HOME");
}

} // namespace
} // namespace clipwren
