#pragma once

namespace clipwren {

/// The part of a file to keep, in seconds from its beginning.
struct TrimRange {
    double start;
    double end;

    bool operator==(const TrimRange &) const = default;
};

} // namespace clipwren
