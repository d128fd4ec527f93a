#pragma once

namespace clipwren {

inline constexpr double shortestTrimSeconds = 0.05;

/// The part of a file to keep, in seconds from its beginning.
struct TrimRange {
    double start;
    double end;

    /// Of a shorter range there may be no picture to keep.
    bool isLongEnough() const { return start + shortestTrimSeconds < end; }

    bool operator==(const TrimRange &) const = default;
};

} // namespace clipwren
