#include "core/library/Timestamp.h"

#include <algorithm>

namespace clipwren {
namespace {

bool isDigit(QChar character)
{
    // QChar::isDigit() takes the digits of every script.
    return character >= u'0' && character <= u'9';
}

// In the pattern 0 stands for any digit.
bool hasForm(QStringView text)
{
    constexpr QStringView pattern = u"0000-00-00T00:00:00Z";
    const auto matches = [](QChar character, QChar expected) {
        return expected == u'0' ? isDigit(character) : character == expected;
    };
    return std::ranges::equal(text, pattern, matches);
}

int number(QStringView digits)
{
    int value = 0;
    for (const QChar digit : digits)
        value = value * 10 + (digit.unicode() - u'0');
    return value;
}

} // namespace

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

QString timestampText(const QDateTime &time)
{
    return time.toString(Qt::ISODate);
}

std::optional<QDateTime> parseTimestamp(QStringView text)
{
    // QDateTime::fromString() would also take fractions, offsets and 24:00:00.
    if (!hasForm(text))
        return std::nullopt;
    const auto field = [&](qsizetype place, qsizetype digits) {
        return number(text.mid(place, digits));
    };
    const QDate date(field(0, 4), field(5, 2), field(8, 2));
    const QTime time(field(11, 2), field(14, 2), field(17, 2));
    if (!date.isValid() || !time.isValid())
        return std::nullopt;
    return QDateTime(date, time, Qt::UTC);
}

} // namespace clipwren
