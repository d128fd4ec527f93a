#pragma once

#include <QSlider>

namespace clipwren {

/// A horizontal slider of fractions of a unit, from 0 up, as the keyboard and assistive tools see
/// it. Subclasses say how it looks and what the mouse does.
///
/// What it shows is set from outside with every change, also the one that the user asked for. Runs
/// from left to right in every language, as time does.
class Slider : public QSlider {
    Q_OBJECT
public:
    struct Unit {
        double steps; ///< of the slider in one unit, as 1000 milliseconds in a second
        QString (*textOf)(double value); ///< how assistive tools read a value
    };

    /// `name` is its accessible name.
    Slider(const QString &name, const Unit &unit, QWidget *parent = nullptr);

    /// For the arrow keys, and for Page Up and Page Down.
    void setSteps(double arrow, double page);
    void setLargestValue(double value);
    /// Shows a value, without signals.
    void showValue(double value);

Q_SIGNALS:
    /// The user asks for a value, from 0 to the largest one.
    void valueRequested(double value);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

    /// Asks for the step of the slider at a place, in steps.
    void requestPosition(int position);
    /// Ends a drag, if there is one.
    void endDrag();

private:
    friend class AccessibleSlider;

    int positionOf(double value) const;
    double valueAt(int position) const;
    void settle();

    Unit m_unit;
    double m_largest = 0;
};

} // namespace clipwren
