#pragma once

#include <QVariantAnimation>

#include <functional>

namespace clipwren {

/// Moves a number to its target like a critically damped spring, so without overshoot; at once
/// under reduced motion.
///
/// User-interface thread only. Runs no timer while at rest.
class SpringAnimation : public QVariantAnimation {
    Q_OBJECT
public:
    /// `responseSeconds` is one period of the spring without damping. `moved` is called with every
    /// new position.
    SpringAnimation(double responseSeconds, double position, std::function<void(double)> moved,
                    QObject *parent = nullptr);

    double position() const { return m_position; }
    /// Starts from the current position.
    void moveTo(double target);
    void jumpTo(double target);

protected:
    void updateCurrentValue(const QVariant &value) override;

private:
    double m_position;
    double m_target;
    std::function<void(double)> m_moved;
};

} // namespace clipwren
