#include "core/library/DownloadRecord.h"

#include "core/library/JsonFields.h"
#include "core/text/BoundedText.h"

#include <QHash>

namespace clipwren {

using namespace Qt::StringLiterals;

DownloadRecord DownloadRecord::fromJson(const JsonObjectReader &reader)
{
    return {
        .id = requiredId(reader, "id"_L1),
        .title = boundedText(reader.requiredText("title"_L1), longestTitle),
        .sourceURL = reader.requiredText("sourceURL"_L1),
        .filePath = reader.requiredText("filePath"_L1),
        .thumbnailURL = reader.text("thumbnailURL"_L1),
        .durationSeconds = reader.number("durationSeconds"_L1),
        .trimStart = reader.number("trimStart"_L1),
        .trimEnd = reader.number("trimEnd"_L1),
        .createdAt = requiredTimestamp(reader, "createdAt"_L1),
    };
}

QJsonObject DownloadRecord::toJson() const
{
    QJsonObject object{
        {"id"_L1, idText(id)},
        {"title"_L1, title},
        {"sourceURL"_L1, sourceURL},
        {"filePath"_L1, filePath},
        {"createdAt"_L1, timestampText(createdAt)},
    };
    insertPresent(object, "thumbnailURL"_L1, thumbnailURL);
    insertPresent(object, "durationSeconds"_L1, durationSeconds);
    insertPresent(object, "trimStart"_L1, trimStart);
    insertPresent(object, "trimEnd"_L1, trimEnd);
    return object;
}

size_t qHash(const DownloadRecord &record, size_t seed)
{
    return qHashMulti(seed, record.id, record.title, record.sourceURL, record.filePath,
                      record.thumbnailURL.value_or(QString()), record.durationSeconds.value_or(-1),
                      record.trimStart.value_or(-1), record.trimEnd.value_or(-1), record.createdAt);
}

} // namespace clipwren
