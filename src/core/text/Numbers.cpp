#include "core/text/Numbers.h"

#include <QByteArray>

#include <charconv>
#include <cmath>

namespace clipwren {
namespace {

template <typename Number> std::optional<Number> readWhole(QStringView text)
{
    const QByteArray ascii = text.toLatin1();
    const char *first = ascii.cbegin();
    const char *const last = ascii.cend();
    // from_chars() takes a minus sign only.
    if (ascii.startsWith('+') && !ascii.startsWith("+-"))
        ++first;
    Number number{};
    const auto [end, error] = std::from_chars(first, last, number);
    if (error != std::errc() || end != last)
        return std::nullopt;
    return number;
}

} // namespace

std::optional<double> readNumber(QStringView text)
{
    const auto number = readWhole<double>(text);
    return number && std::isfinite(*number) ? number : std::nullopt;
}

std::optional<qint64> readInteger(QStringView text)
{
    return readWhole<qint64>(text);
}

} // namespace clipwren
