#pragma once

#include "ui/components/Slider.h"

namespace clipwren {

/// A thin white slider for the bar over a video. Grows a knob under the pointer and while it has
/// focus. A click jumps, and a drag goes on from there.
///
/// Ignores the keys Up and Down and keys with modifiers, which then reach the video. Disabled while
/// the largest value is 0.
class ThinSlider : public Slider {
    Q_OBJECT
public:
    ThinSlider(const QString &name, const Unit &unit, QWidget *parent = nullptr);

    void setLargestValue(double value);
    /// Ends a drag without a signal.
    void cancelDrag();

    QSize sizeHint() const override { return {200, 22}; }
    QSize minimumSizeHint() const override { return {48, 22}; }

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
};

} // namespace clipwren
