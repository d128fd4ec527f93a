#include "core/library/JsonFields.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

namespace clipwren {

namespace {

using namespace Qt::StringLiterals;

/// Whether a text has the form of a pattern, in which 0 stands for any decimal digit, h for any
/// hexadecimal one, and all else for itself.
bool hasForm(QStringView text, QStringView pattern)
{
    const auto matches = [](QChar character, QChar expected) {
        // QChar::isDigit() takes the digits of every script.
        const bool isDigit = character >= u'0' && character <= u'9';
        if (expected == u'0')
            return isDigit;
        if (expected != u'h')
            return character == expected;
        return isDigit || (character >= u'A' && character <= u'F')
            || (character >= u'a' && character <= u'f');
    };
    return std::ranges::equal(text, pattern, matches);
}

std::optional<QDateTime> parseTimestamp(QStringView text)
{
    // QDateTime::fromString() would also take fractions, offsets and 24:00:00.
    if (!hasForm(text, u"0000-00-00T00:00:00Z"))
        return std::nullopt;
    const auto field = [&](qsizetype place, qsizetype digits) {
        return text.mid(place, digits).toInt();
    };
    const QDate date(field(0, 4), field(5, 2), field(8, 2));
    const QTime time(field(11, 2), field(14, 2), field(17, 2));
    if (!date.isValid() || !time.isValid())
        return std::nullopt;
    return QDateTime(date, time, Qt::UTC);
}

} // namespace

QUuid requiredId(const JsonObjectReader &reader, QLatin1StringView key)
{
    const QString text = reader.requiredText(key);
    // QUuid would also take braces, and ignore what follows the last digit.
    if (!hasForm(text, u"hhhhhhhh-hhhh-hhhh-hhhh-hhhhhhhhhhhh"))
        reader.fail(key, QCoreApplication::translate("Error", "a UUID"));
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
        reader.fail(key, QCoreApplication::translate("Error", "a time like 2026-03-01T14:05:09Z"));
    return *time;
}

QString timestampText(const QDateTime &time)
{
    return time.toString(Qt::ISODate);
}

QDateTime currentTimestamp()
{
    return QDateTime::fromSecsSinceEpoch(QDateTime::currentSecsSinceEpoch(), Qt::UTC);
}

QDateTime storableTimestamp(const QDateTime &time)
{
    if (!time.isValid())
        return currentTimestamp();
    const QDateTime utc = QDateTime::fromSecsSinceEpoch(time.toSecsSinceEpoch(), Qt::UTC);
    const int year = utc.date().year();
    return year >= 1 && year <= 9999 ? utc : currentTimestamp();
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
