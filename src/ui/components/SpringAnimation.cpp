#include "ui/components/SpringAnimation.h"

#include "ui/components/Theme.h"

#include <QEasingCurve>

#include <cmath>
#include <numbers>

namespace clipwren {
namespace {

// Radians of the undamped swing after which the spring stays within a thousandth of its target.
constexpr double settledPhase = 9.233;

double criticallyDamped(double progress)
{
    const double phase = progress * settledPhase;
    return progress >= 1 ? 1 : 1 - std::exp(-phase) * (1 + phase);
}

QEasingCurve springCurve()
{
    QEasingCurve curve;
    curve.setCustomType(criticallyDamped);
    return curve;
}

} // namespace

SpringAnimation::SpringAnimation(double responseSeconds, double position,
                                 std::function<void(double)> moved, QObject *parent)
    : QVariantAnimation(parent), m_position(position), m_target(position), m_moved(std::move(moved))
{
    setEasingCurve(springCurve());
    setDuration(static_cast<int>(
        std::lround(responseSeconds * settledPhase / (2 * std::numbers::pi) * 1000)));
}

void SpringAnimation::moveTo(double target)
{
    if (Theme::current().reducedMotion()) {
        jumpTo(target);
        return;
    }
    if (target == m_target)
        return;
    stop();
    m_target = target;
    setStartValue(m_position);
    setEndValue(target);
    start();
}

void SpringAnimation::jumpTo(double target)
{
    stop();
    m_target = target;
    m_position = target;
    m_moved(m_position);
}

void SpringAnimation::updateCurrentValue(const QVariant &value)
{
    // Setting the bounds of an animation at rest reports a value, too.
    if (state() != Running)
        return;
    m_position = value.toDouble();
    m_moved(m_position);
}

} // namespace clipwren
