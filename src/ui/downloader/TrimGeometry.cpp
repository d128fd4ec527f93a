#include "ui/downloader/TrimGeometry.h"

#include <algorithm>
#include <cmath>

namespace clipwren {

double TrimGeometry::trackWidth() const
{
    return std::max(width - knobSize, 1.0);
}

double TrimGeometry::handleX(double seconds) const
{
    return trackWidth() * (seconds / duration);
}

double TrimGeometry::timeAt(double pointerX) const
{
    const double place = std::clamp(pointerX - knobSize / 2, 0.0, trackWidth());
    // A duration that ends on no tenth is still to be reached.
    if (place == trackWidth())
        return duration;
    return toTenths(duration * (place / trackWidth()));
}

TrimRange withStart(const TrimRange &range, double seconds)
{
    // Never before the beginning, also in a clip that has no room for the gap.
    const double start = std::min(std::max(seconds, 0.0), range.end - minimumHandleGapSeconds);
    return {std::max(start, 0.0), range.end};
}

TrimRange withEnd(const TrimRange &range, double seconds, double duration)
{
    return {range.start,
            std::max(std::min(seconds, duration), range.start + minimumHandleGapSeconds)};
}

double toTenths(double seconds)
{
    return std::round(seconds * 10) / 10;
}

} // namespace clipwren
