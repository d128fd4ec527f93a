#pragma once

#include <QDateTime>
#include <QJsonObject>
#include <QString>
#include <QUuid>

#include <optional>

namespace clipwren {

class JsonObjectReader;

/// One video, however often and under whatever form of its address it was downloaded.
struct HistoryEntry {
    QUuid id;
    QString title; ///< as last reported
    QString url; ///< as given the first time
    std::optional<QString> thumbnailURL;
    std::optional<double> durationSeconds;
    QDateTime firstDownloadedAt; ///< UTC, whole seconds
    QDateTime lastDownloadedAt; ///< UTC, whole seconds
    qint64 downloadCount = 1; ///< at least 1

    /// Of a title no more than `longestTitle` is kept. Throws `DecodingError`.
    static HistoryEntry fromJson(const JsonObjectReader &reader);
    QJsonObject toJson() const;

    bool operator==(const HistoryEntry &) const = default;
};

size_t qHash(const HistoryEntry &entry, size_t seed = 0);

} // namespace clipwren

// Lets QList move entries as bytes.
Q_DECLARE_TYPEINFO(clipwren::HistoryEntry, Q_RELOCATABLE_TYPE);
