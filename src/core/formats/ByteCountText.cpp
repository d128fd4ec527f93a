#include "core/formats/ByteCountText.h"

#include <array>

namespace clipwren {
namespace {

struct Precision {
    QLatin1StringView name;
    quint64 step; ///< bytes that the last fraction digit stands for
    int fractionDigits;
};

constexpr std::array<Precision, 4> precisions{{
    {QLatin1StringView("KB"), 1'000, 0},
    {QLatin1StringView("MB"), 100'000, 1},
    {QLatin1StringView("GB"), 10'000'000, 2},
    {QLatin1StringView("TB"), 10'000'000'000, 2},
}};

constexpr std::array<quint64, 3> powersOfTen{1, 10, 100};

} // namespace

QString byteCountText(qint64 bytes, ByteUnits units, const QLocale &locale)
{
    // Counted in whole steps, so that no binary fraction decides how a digit is rounded.
    const quint64 magnitude =
        bytes < 0 ? 0 - static_cast<quint64>(bytes) : static_cast<quint64>(bytes);
    auto unit = static_cast<size_t>(units.smallest);
    quint64 steps = 0;
    int digits = 0;
    while (true) {
        const Precision &precision = precisions[unit];
        steps = (magnitude + precision.step / 2) / precision.step;
        digits = precision.fractionDigits;
        if (unit == static_cast<size_t>(units.largest)
            || steps < 1'000 * powersOfTen[static_cast<size_t>(digits)])
            break;
        ++unit;
    }
    while (digits > 0 && steps % 10 == 0) {
        steps /= 10;
        --digits;
    }

    QLocale ungrouped = locale;
    ungrouped.setNumberOptions(locale.numberOptions() | QLocale::OmitGroupSeparator);
    const double count =
        static_cast<double>(steps) / static_cast<double>(powersOfTen[static_cast<size_t>(digits)]);
    return ungrouped.toString(bytes < 0 ? -count : count, 'f', digits) + u' '
        + precisions[unit].name;
}

} // namespace clipwren
