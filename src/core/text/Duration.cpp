#include "core/text/Duration.h"

#include <QRegularExpression>

#include <cmath>

namespace clipwren {

using namespace Qt::StringLiterals;

namespace {

/// Rounds to that many steps a second, halves away from zero. Absent for an invalid duration.
std::optional<qint64> stepsIn(double seconds, int stepsPerSecond)
{
    constexpr double longest = 9e15;
    if (!(seconds >= 0) || seconds > longest)
        return std::nullopt;
    return std::llround(seconds * stepsPerSecond);
}

QString wholeSecondsText(qint64 seconds)
{
    const auto twoDigits = [](qint64 number) {
        return QString::number(number).rightJustified(2, u'0');
    };
    const qint64 minutes = seconds / 60;
    if (minutes < 60)
        return QString::number(minutes) + u':' + twoDigits(seconds % 60);
    return QString::number(minutes / 60) + u':' + twoDigits(minutes % 60) + u':'
        + twoDigits(seconds % 60);
}

const QString noDuration = u"—"_s;

} // namespace

QString formatDuration(double seconds)
{
    const std::optional<qint64> rounded = stepsIn(seconds, 1);
    return rounded ? wholeSecondsText(*rounded) : noDuration;
}

QString formatDurationTenths(double seconds)
{
    const std::optional<qint64> tenths = stepsIn(seconds, 10);
    return tenths ? wholeSecondsText(*tenths / 10) + u'.' + QString::number(*tenths % 10)
                  : noDuration;
}

std::optional<double> parseTime(QStringView text)
{
    static const QRegularExpression shape(
        u"^(?:(?:(\\d{1,4}):)?(\\d{1,3}):)?(\\d{1,9}(?:\\.\\d+)?)$"_s);
    const QRegularExpressionMatch match = shape.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    const double hours = match.captured(1).toDouble();
    const double minutes = match.captured(2).toDouble();
    const double seconds = match.captured(3).toDouble();
    if ((match.hasCaptured(1) && minutes >= 60) || (match.hasCaptured(2) && seconds >= 60))
        return std::nullopt;
    return hours * 3600 + minutes * 60 + seconds;
}

} // namespace clipwren
