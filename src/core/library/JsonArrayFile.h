#pragma once

#include "core/json/JsonObjectSequence.h"

#include <QJsonObject>
#include <QList>
#include <QString>

#include <optional>
#include <utility>

namespace clipwren {

/// A list that lives in a file as one JSON array of objects, read once and rewritten whole.
///
/// A value has `static Value fromJson(const JsonObjectReader &)`, which may throw
/// `DecodingError`, and `QJsonObject toJson() const`.
///
/// Nothing here throws, and nothing is lost: a save leaves the old file or the new one, whole and
/// on the disk, and a file that could not be read or decoded is kept beside it under the first
/// free name of "NAME.rejected", "NAME.rejected.2" and so on before a save replaces it. Only the
/// user may read what is written: addresses may hold passwords.
class JsonArrayFile {
public:
    /// Creates the folder if needed, and goes on if that fails. Without a folder there is no file:
    /// loads find nothing, and saves do nothing.
    JsonArrayFile(const QString &folder, const QString &name);

    /// All values in the file's order; none when the file is missing, cannot be read, or holds
    /// anything that is no such value.
    template <typename Value> QList<Value> load();

    /// Replaces the file. Why that failed, in the user's words; the file is then as it was.
    template <typename Value> std::optional<QString> save(const QList<Value> &values);

private:
    /// Throws an `Error` when the file is missing or cannot be read.
    JsonObjectSequence open() const;
    QByteArray emptyBuffer() const;
    static void appendElement(QByteArray &elements, const QJsonObject &element);
    void logUnread(const Error &error) const;
    std::optional<QString> write(QByteArray elements);
    /// False when there is no file. Throws what `replaceFile` throws, or an `Error`.
    bool keepUnreadFile(const QString &target) const;

    QString m_path; // empty when there is no file
    /// False while the file may hold what this object has never read or written.
    bool m_isFileKnown = false;
};

template <typename Value> QList<Value> JsonArrayFile::load()
{
    QList<Value> values;
    try {
        JsonObjectSequence elements = open();
        while (const auto element = elements.next())
            values.append(Value::fromJson(*element));
        m_isFileKnown = true;
    } catch (const Error &error) {
        values.clear();
        logUnread(error);
    }
    return values;
}

template <typename Value> std::optional<QString> JsonArrayFile::save(const QList<Value> &values)
{
    // One element at a time: a document of them all would take several times the memory.
    QByteArray elements = emptyBuffer();
    for (const Value &value : values)
        appendElement(elements, value.toJson());
    return write(std::move(elements));
}

} // namespace clipwren
