#include "core/media/FfmpegProgress.h"

#include "core/text/Numbers.h"

#include <algorithm>

namespace clipwren {

std::optional<double> ffmpegFraction(QStringView line, double totalSeconds)
{
    const qsizetype equals = line.indexOf(u'=');
    if (equals < 0)
        return std::nullopt;
    const QStringView key = line.first(equals);
    const QStringView value = line.sliced(equals + 1);
    if (key == u"progress" && value == u"end")
        return 1.0;
    if (key != u"out_time_us" || totalSeconds <= 0)
        return std::nullopt;
    const auto microseconds = readNumber(value);
    return microseconds
        ? std::optional(std::clamp(*microseconds / (totalSeconds * 1'000'000), 0.0, 1.0))
        : std::nullopt;
}

} // namespace clipwren
