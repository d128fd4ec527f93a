#pragma once

#include "core/media/TrimRange.h"

namespace clipwren {

/// Where the handles of a trim slider stand, and what time a place on it means.
///
/// Places are logical pixels from the slider's left edge, times seconds.
struct TrimGeometry {
    static constexpr double trackHeight = 6;
    static constexpr double knobSize = 18;
    static constexpr double height = knobSize + 8;

    double width; ///< of the whole slider; any
    double duration; ///< greater than 0

    /// The way that a handle can go; at least 1.
    double trackWidth() const;
    /// The left edge of the handle at a time.
    double handleX(double seconds) const;
    /// The time that a handle gets when its middle is dragged to a place: a whole tenth of a
    /// second, or the whole duration at the right end.
    double timeAt(double pointerX) const;
};

/// What the user leaves between the handles at least. A range set by the program may be shorter.
inline constexpr double minimumHandleGapSeconds = 0.1;

/// The range with its start moved towards a time, as far as its end lets it.
TrimRange withStart(const TrimRange &range, double seconds);
/// The range with its end moved towards a time, as far as its start and the duration let it.
TrimRange withEnd(const TrimRange &range, double seconds, double duration);

/// The nearest tenth of a second; halves away from zero.
double toTenths(double seconds);

} // namespace clipwren
