#pragma once

#include "core/Error.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>

#include <optional>
#include <vector>

namespace clipwren {

/// A document that is not what it should be. The description names the place, as in
/// "formats[3].height: expected a whole number".
class DecodingError : public Error {
public:
    using Error::Error;
};

/// Reads the fields of one JSON object by type.
///
/// A key that is missing or null is absent; a value of another type throws `DecodingError`.
/// Keys that nobody asks for are ignored.
class JsonObjectReader {
public:
    /// Throws `DecodingError` when the bytes are no JSON document with an object at its top.
    static JsonObjectReader fromDocument(const QByteArray &utf8);

    std::optional<QString> text(QLatin1StringView key) const;
    std::optional<bool> boolean(QLatin1StringView key) const;
    std::optional<double> number(QLatin1StringView key) const;
    /// Whole numbers of 64 bits, exactly; 1080.0 is one, 1080.5 and 1e30 are not.
    std::optional<qint64> integer(QLatin1StringView key) const;
    std::optional<JsonObjectReader> object(QLatin1StringView key) const;
    std::optional<std::vector<JsonObjectReader>> objects(QLatin1StringView key) const;

    QString requiredText(QLatin1StringView key) const;
    qint64 requiredInteger(QLatin1StringView key) const;

    /// Throws the `DecodingError` that says what was expected of the key.
    [[noreturn]] void fail(QLatin1StringView key, const QString &expected) const;

private:
    JsonObjectReader(QJsonObject object, QString path, qsizetype index = -1);
    static std::vector<JsonObjectReader> readersOf(const QJsonArray &array, const QString &path);
    std::optional<QJsonValue> present(QLatin1StringView key) const;
    QString pathOf(QLatin1StringView key) const;

    QJsonObject m_object;
    QString m_path; ///< of this object, or of the array that holds it; empty at the top
    qsizetype m_index; ///< in that array; -1 for an object that is no element
};

} // namespace clipwren
