#include "core/text/Duration.h"

#include <cmath>

namespace clipwren {

QString formatDuration(double seconds)
{
    constexpr double longest = 9e15;
    if (!(seconds >= 0) || seconds > longest)
        return QStringLiteral("—");
    const qint64 rounded = std::llround(seconds);
    const auto twoDigits = [](qint64 number) {
        return QString::number(number).rightJustified(2, u'0');
    };
    const qint64 minutes = rounded / 60;
    if (minutes < 60)
        return QString::number(minutes) + u':' + twoDigits(rounded % 60);
    return QString::number(minutes / 60) + u':' + twoDigits(minutes % 60) + u':'
        + twoDigits(rounded % 60);
}

} // namespace clipwren
