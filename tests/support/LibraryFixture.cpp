#include "support/LibraryFixture.h"

#include "core/library/JsonFields.h"

namespace clipwren::test {

using namespace Qt::StringLiterals;

DownloadRecord fullRecord(const QString &title)
{
    DownloadRecord record = bareRecord(title);
    record.thumbnailURL = u"https://i.example.org/1.jpg"_s;
    record.durationSeconds = 212.5;
    record.trimStart = 0.1 + 0.2;
    record.trimEnd = 100;
    return record;
}

DownloadRecord bareRecord(const QString &title)
{
    DownloadRecord record;
    record.id = QUuid::createUuid();
    record.title = title;
    record.sourceURL = u"https://example.org/watch?a=1&b=2"_s;
    record.filePath = u"/home/a/Videos/%1.mp4"_s.arg(title);
    record.createdAt = currentTimestamp();
    return record;
}

} // namespace clipwren::test
