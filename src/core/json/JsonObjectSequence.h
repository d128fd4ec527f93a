#pragma once

#include "core/json/JsonObjectReader.h"

#include <QByteArray>

#include <optional>

namespace clipwren {

/// Reads a document that is one array of objects, an object at a time.
///
/// A document of the whole array would take several times the memory of a long list, and most of
/// the time to read it.
class JsonObjectSequence {
public:
    explicit JsonObjectSequence(QByteArray utf8);

    /// Absent after the last object. Throws `DecodingError` where the bytes are not such an array.
    std::optional<JsonObjectReader> next();

private:
    void skipSpace();
    bool accept(char expected);
    void skipObject();
    [[noreturn]] void fail(const QString &expected) const;

    QByteArray m_utf8;
    qsizetype m_place = 0;
    bool m_isInside = false; ///< behind the opening bracket
};

} // namespace clipwren
