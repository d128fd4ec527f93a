#pragma once

#include "ui/components/Spring.h"

#include <QVariantAnimation>

#include <functional>

namespace clipwren {

/// Moves a number to where it should be, as on a spring; at once under reduced motion.
///
/// User-interface thread only. Runs no timer while at rest.
class SpringAnimation : public QVariantAnimation {
    Q_OBJECT
public:
    /// `moved` is called with every new position.
    SpringAnimation(Spring spring, double position, std::function<void(double)> moved,
                    QObject *parent = nullptr);

    double position() const { return m_position; }
    /// Starts from wherever it is now.
    void moveTo(double target);
    void jumpTo(double target);

protected:
    QVariant interpolated(const QVariant &from, const QVariant &to, qreal progress) const override;
    void updateCurrentValue(const QVariant &value) override;

private:
    Spring m_spring;
    double m_settlingTime;
    double m_position;
    double m_target;
    std::function<void(double)> m_moved;
};

} // namespace clipwren
