#include "ui/components/Spring.h"

#include <cmath>
#include <numbers>

namespace clipwren {

double Spring::position(double seconds) const
{
    if (seconds <= 0)
        return 0;
    const double frequency = 2 * std::numbers::pi / response;
    const double decay = dampingFraction * frequency;
    if (dampingFraction < 1) {
        const double damped = frequency * std::sqrt(1 - dampingFraction * dampingFraction);
        return 1
            - std::exp(-decay * seconds)
            * (std::cos(damped * seconds) + decay / damped * std::sin(damped * seconds));
    }
    if (dampingFraction == 1)
        return 1 - std::exp(-decay * seconds) * (1 + decay * seconds);
    const double spread = frequency * std::sqrt(dampingFraction * dampingFraction - 1);
    const double slow = decay - spread;
    const double fast = decay + spread;
    return 1 - (fast * std::exp(-slow * seconds) - slow * std::exp(-fast * seconds)) / (2 * spread);
}

double Spring::settlingTime() const
{
    // Backwards in hundredths of the response from a time at which it surely rests.
    const double step = response / 100;
    double seconds = response * 2 * (dampingFraction + 1 / dampingFraction);
    while (seconds > step && std::abs(1 - position(seconds - step)) < 0.001)
        seconds -= step;
    return seconds;
}

} // namespace clipwren
