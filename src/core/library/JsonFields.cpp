#include "core/library/JsonFields.h"

#include "core/library/Timestamp.h"

#include <algorithm>
#include <cmath>

namespace clipwren {
namespace {

bool isIdText(QStringView text)
{
    constexpr QStringView pattern = u"hhhhhhhh-hhhh-hhhh-hhhh-hhhhhhhhhhhh";
    const auto matches = [](QChar character, QChar expected) {
        if (expected == u'-')
            return character == u'-';
        return (character >= u'0' && character <= u'9') || (character >= u'A' && character <= u'F')
            || (character >= u'a' && character <= u'f');
    };
    return std::ranges::equal(text, pattern, matches);
}

} // namespace

QUuid requiredId(const JsonObjectReader &reader, QLatin1StringView key)
{
    const QString text = reader.requiredText(key);
    // QUuid would also take braces, and ignore what follows the last digit.
    if (!isIdText(text))
        reader.fail(key, QStringLiteral("a UUID"));
    return QUuid(text);
}

QString idText(const QUuid &id)
{
    return id.toString(QUuid::WithoutBraces).toUpper();
}

QDateTime requiredTimestamp(const JsonObjectReader &reader, QLatin1StringView key)
{
    const auto time = parseTimestamp(reader.requiredText(key));
    if (!time)
        reader.fail(key, QStringLiteral("a time like 2026-03-01T14:05:09Z"));
    return *time;
}

std::optional<double> storableNumber(std::optional<double> number)
{
    return number && std::isfinite(*number) ? number : std::nullopt;
}

void insertPresent(QJsonObject &object, QLatin1StringView key, const std::optional<QString> &text)
{
    if (text)
        object.insert(key, *text);
}

void insertPresent(QJsonObject &object, QLatin1StringView key, std::optional<double> number)
{
    if (number)
        object.insert(key, *number);
}

} // namespace clipwren
