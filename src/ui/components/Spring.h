#pragma once

namespace clipwren {

/// The movement of a mass on a damped spring from 0 to 1.
struct Spring {
    double response; ///< seconds of one swing without damping; greater than 0
    double dampingFraction; ///< 1 arrives without overshoot, less swings past the end; above 0

    /// Where it is after some seconds. 0 at the start, towards 1 with time.
    double position(double seconds) const;
    /// Seconds after which it stays within a thousandth of 1.
    double settlingTime() const;
};

} // namespace clipwren
