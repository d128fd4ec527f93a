#include "core/library/HistoryStore.h"

#include "core/library/JsonFields.h"
#include "support/LibraryFixture.h"

#include <QSignalSpy>

#include <limits>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

class HistoryStoreTest : public test::LibraryFixture {
protected:
    QList<HistoryEntry> reloaded() const { return HistoryStore(folder()).entries(); }
};

const QString watchPage = u"https://www.youtube.com/watch?v=abc123&list=x"_s;
const QString shortLink = u"https://youtu.be/abc123?t=5"_s;

TEST_F(HistoryStoreTest, recognisesAVideoByItsKey)
{
    // A key is no address with a host, so it is its own key: recording it shows whether it is that
    // of the address.
    const struct {
        const char *address, *key;
        bool matches = true;
    } rows[] = {
        {"https://www.youtube.com/watch?v=abc123&list=x", "youtube:abc123"},
        {"http://m.youtube.com/watch?list=x&v=abc123#v=2", "youtube:abc123"},
        {"HTTPS://WWW.YouTube.COM/watch?v=aBc", "youtube:aBc"},
        {"https://www.youtube.com.example.org/watch?v=abc", "youtube:abc"},
        {"https://youtube.com/channel?v=1&v=2", "youtube:1"},
        {"https://youtube.com/watch?v=", "youtube:"},
        {"https://youtube.com/watch?%76=a%26b%3Dc+d%20e=f", "youtube:a&b=c+d e=f"},
        {"https://youtube.com/shorts/abc123?feature=x", "youtube:abc123"},
        {"https://youtube.com/shorts/abc123/", "youtube:abc123/"},
        {"https://youtube.com/shorts/a/shorts/b", "youtube:ab"},
        {"https://youtube.com/shorts/a?v=b", "youtube:b"},
        {"https://youtube.com/shorts/a?v", "youtube:a"},
        {"https://YOUTU.BE//abc123//?v=other", "youtube:abc123"},
        {"https://youtu.be/a%20b/c", "youtube:a b/c"},
        {"https://youtu.be", "youtube:"},
        {"https://youtube.com/watch?V=1", "youtube:1", false},
        {"https://youtube.com/watch?v", "youtube:", false},
        {"https://youtube.com/watch?v&v=2", "youtube:2", false},
        {"https://youtube.com/@channel", "youtube:@channel", false},
        {"https://youtube.com/shorts", "youtube:", false},
        {"https://youtube.com/x/shorts/a", "youtube:/xa", false},
        {"https://www.youtu.be/abc123", "youtube:abc123", false},
        {"https://example.org/watch?v=abc123", "youtube:abc123", false},
        {"youtu.be/abc123", "youtube:abc123", false},
        {"https://youtube.com:99999/watch?v=1", "youtube:1", false},
        {"https://[youtube.com/watch?v=1", "youtube:1", false},
        {"https://youtube.com/watch?v=%", "youtube:%", false},
        {"https://o.org/1", "https://o.org/1?x=2", false},
        {"https://o.org/1", "https://O.org/1", false},
    };
    for (const auto &[address, key, matches] : rows) {
        HistoryStore store{QString()};
        store.recordDownload(QString::fromUtf8(address), u"t"_s, {}, {});
        store.recordDownload(QString::fromUtf8(key), {}, {}, {});
        EXPECT_EQ(store.entries().last().url, QString::fromUtf8(address));
        EXPECT_EQ(store.entries().size(), matches ? 1 : 2) << address;
    }
}

TEST_F(HistoryStoreTest, countsAVideoUnderItsFirstAddress)
{
    writeFile(u"history.json"_s, R"([
        {"id": "E621E1F8-C36C-495A-93FC-0C247A3E6E5F", "title": "Other", "url": "https://o.org/1",
         "firstDownloadedAt": "2020-01-01T00:00:00Z", "lastDownloadedAt": "2020-01-01T00:00:00Z",
         "downloadCount": 9223372036854775807, "thumbnailURL": "o"},
        {"id": "00000000-C36C-495A-93FC-0C247A3E6E5F", "title": "Video", "durationSeconds": 1.5,
         "url": "https://www.youtube.com/watch?v=abc123&list=x", "thumbnailURL": "old",
         "firstDownloadedAt": "2019-01-01T00:00:00Z", "lastDownloadedAt": "2019-01-01T00:00:00Z",
         "downloadCount": 9007199254740993}])");
    HistoryStore store(folder());
    ASSERT_EQ(store.entries().size(), 2);
    HistoryEntry expected = store.entries()[1];
    const HistoryEntry other = store.entries()[0];
    const QDateTime before = currentTimestamp();

    store.recordDownload(shortLink, QString(), {}, std::numeric_limits<double>::infinity());
    EXPECT_GE(store.entries()[0].lastDownloadedAt, before);
    expected.lastDownloadedAt = store.entries()[0].lastDownloadedAt;
    expected.downloadCount = 9007199254740994;
    EXPECT_EQ(store.entries(), (QList{expected, other}));
    EXPECT_EQ(reloaded(), store.entries());

    store.recordDownload(watchPage, u"New"_s, u"new"_s, 2.5);
    EXPECT_EQ(store.entries()[0].title, u"New"_s);
    EXPECT_EQ(store.entries()[0].thumbnailURL, u"new"_s);
    EXPECT_EQ(store.entries()[0].durationSeconds, 2.5);

    store.recordDownload(u"https://o.org/1"_s, QString(), {}, {});
    EXPECT_EQ(store.entries()[0].downloadCount, std::numeric_limits<qint64>::max());
    EXPECT_EQ(reloaded(), store.entries());
}

TEST_F(HistoryStoreTest, removesOneEntryOrAll)
{
    HistoryStore store(folder());
    QSignalSpy changes(&store, &HistoryStore::changed);
    store.recordDownload(shortLink, {}, {}, {});
    store.recordDownload(watchPage, {}, {}, {});
    EXPECT_EQ(store.entries().value(0).title, shortLink) << "for want of a title";
    EXPECT_EQ(store.entries().value(0).url, shortLink);
    store.recordDownload(u"https://o.org/1"_s, {}, {}, {});
    const HistoryEntry kept = store.entries()[0];
    store.remove(store.entries()[1]); // which lies in the list that is being changed
    EXPECT_EQ(store.entries(), QList{kept});
    EXPECT_EQ(reloaded(), store.entries());
    EXPECT_EQ(changes.count(), 4);

    store.clear();
    EXPECT_TRUE(reloaded().isEmpty());
    store.recordDownload(shortLink, {}, {}, {});
    EXPECT_EQ(store.entries().value(0).downloadCount, 1);
}

} // namespace
} // namespace clipwren
