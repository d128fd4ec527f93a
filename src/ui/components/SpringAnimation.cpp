#include "ui/components/SpringAnimation.h"

#include "ui/components/Theme.h"

#include <cmath>

namespace clipwren {

SpringAnimation::SpringAnimation(Spring spring, double position, std::function<void(double)> moved,
                                 QObject *parent)
    : QVariantAnimation(parent), m_spring(spring), m_settlingTime(spring.settlingTime()),
      m_position(position), m_target(position), m_moved(std::move(moved))
{
    setDuration(static_cast<int>(std::lround(m_settlingTime * 1000)));
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

QVariant SpringAnimation::interpolated(const QVariant &from, const QVariant &to,
                                       qreal progress) const
{
    if (progress >= 1)
        return to;
    const double start = from.toDouble();
    return start + (to.toDouble() - start) * m_spring.position(progress * m_settlingTime);
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
