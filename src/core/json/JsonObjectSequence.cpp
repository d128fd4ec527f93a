#include "core/json/JsonObjectSequence.h"

#include <QCoreApplication>

#include <utility>

namespace clipwren {

using namespace Qt::StringLiterals;

JsonObjectSequence::JsonObjectSequence(QByteArray utf8) : m_utf8(std::move(utf8))
{
    if (m_utf8.startsWith("\xef\xbb\xbf")) // a byte order mark
        m_place = 3;
}

std::optional<JsonObjectReader> JsonObjectSequence::next()
{
    const bool isFirst = !std::exchange(m_isInside, true);
    if (isFirst && !accept('['))
        fail(QCoreApplication::translate("Error", "an array"));
    if (accept(']')) {
        skipSpace();
        if (m_place < m_utf8.size())
            fail(QCoreApplication::translate("Error", "the end"));
        return std::nullopt;
    }
    if (!isFirst && !accept(','))
        fail(QCoreApplication::translate("Error", "a comma"));
    skipSpace();
    const qsizetype start = m_place;
    skipObject();
    return JsonObjectReader::fromDocument(
        QByteArray::fromRawData(m_utf8.constData() + start, m_place - start));
}

void JsonObjectSequence::skipSpace()
{
    while (m_place < m_utf8.size() && QByteArrayView(" \t\r\n").contains(m_utf8.at(m_place)))
        ++m_place;
}

bool JsonObjectSequence::accept(char expected)
{
    skipSpace();
    if (m_place >= m_utf8.size() || m_utf8.at(m_place) != expected)
        return false;
    ++m_place;
    return true;
}

// Only finds the closing brace: the parser that gets the object checks what is inside.
void JsonObjectSequence::skipObject()
{
    int depth = 0;
    bool isInText = false;
    for (; m_place < m_utf8.size(); ++m_place) {
        const char byte = m_utf8.at(m_place);
        if (byte == '"')
            isInText = !isInText;
        else if (isInText)
            m_place += byte == '\\' ? 1 : 0;
        else if (byte == '{')
            ++depth;
        else if (byte == '}')
            --depth;
        if (depth == 0)
            break;
    }
    if (m_place >= m_utf8.size() || m_utf8.at(m_place) != '}')
        fail(QCoreApplication::translate("Error", "an object"));
    ++m_place;
}

void JsonObjectSequence::fail(const QString &expected) const
{
    throw DecodingError(
        QCoreApplication::translate("Error", "Malformed JSON at byte %1: expected %2")
            .arg(m_place)
            .arg(expected));
}

} // namespace clipwren
