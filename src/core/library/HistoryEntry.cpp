#include "core/library/HistoryEntry.h"

#include "core/library/JsonFields.h"
#include "core/text/BoundedText.h"

#include <QHash>

namespace clipwren {

using namespace Qt::StringLiterals;

HistoryEntry HistoryEntry::fromJson(const JsonObjectReader &reader)
{
    return {
        .id = requiredId(reader, "id"_L1),
        .title = boundedText(reader.requiredText("title"_L1), longestTitle),
        .url = reader.requiredText("url"_L1),
        .thumbnailURL = reader.text("thumbnailURL"_L1),
        .durationSeconds = reader.number("durationSeconds"_L1),
        .firstDownloadedAt = requiredTimestamp(reader, "firstDownloadedAt"_L1),
        .lastDownloadedAt = requiredTimestamp(reader, "lastDownloadedAt"_L1),
        .downloadCount = reader.requiredInteger("downloadCount"_L1),
    };
}

QJsonObject HistoryEntry::toJson() const
{
    QJsonObject object{
        {"id"_L1, idText(id)},
        {"title"_L1, title},
        {"url"_L1, url},
        {"firstDownloadedAt"_L1, timestampText(firstDownloadedAt)},
        {"lastDownloadedAt"_L1, timestampText(lastDownloadedAt)},
        {"downloadCount"_L1, downloadCount},
    };
    insertPresent(object, "thumbnailURL"_L1, thumbnailURL);
    insertPresent(object, "durationSeconds"_L1, durationSeconds);
    return object;
}

size_t qHash(const HistoryEntry &entry, size_t seed)
{
    return qHashMulti(seed, entry.id, entry.title, entry.url,
                      entry.thumbnailURL.value_or(QString()), entry.durationSeconds.value_or(-1),
                      entry.firstDownloadedAt, entry.lastDownloadedAt, entry.downloadCount);
}

} // namespace clipwren
