#pragma once

#include <QDateTime>
#include <QJsonObject>
#include <QString>
#include <QUuid>

#include <optional>

namespace clipwren {

class JsonObjectReader;

/// One file that the application saved.
struct DownloadRecord {
    QUuid id;
    QString title; ///< of the video, or as the user typed it
    QString sourceURL; ///< of the video page
    QString filePath; ///< absolute
    std::optional<QString> thumbnailURL;
    std::optional<double> durationSeconds; ///< of the video
    std::optional<double> trimStart; ///< seconds; set when the file was trimmed
    std::optional<double> trimEnd; ///< seconds
    QDateTime createdAt; ///< from `currentTimestamp()`

    /// Of a title no more than `longestTitle` is kept. Throws `DecodingError`.
    static DownloadRecord fromJson(const JsonObjectReader &reader);
    QJsonObject toJson() const;

    bool operator==(const DownloadRecord &) const = default;
};

size_t qHash(const DownloadRecord &record, size_t seed = 0);

} // namespace clipwren

// Lets QList move records as bytes.
Q_DECLARE_TYPEINFO(clipwren::DownloadRecord, Q_RELOCATABLE_TYPE);
