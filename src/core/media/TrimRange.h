#pragma once

namespace clipwren {

/// Below this a range may hold no picture; it is not cut.
inline constexpr double shortestTrimSeconds = 0.05;

/// The part of a file to keep, in seconds from its beginning.
struct TrimRange {
    double start;
    double end;

    /// Longer than `shortestTrimSeconds`.
    bool isLongEnough() const { return start + shortestTrimSeconds < end; }

    bool operator==(const TrimRange &) const = default;
};

} // namespace clipwren
