#include "ui/player/ThinSlider.h"

#include "ui/components/FocusRing.h"
#include "ui/components/Painting.h"
#include "ui/components/Theme.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace clipwren {

namespace {

constexpr double trackHeight = 4;
constexpr double knobSize = 12;

} // namespace

ThinSlider::ThinSlider(const QString &name, const Unit &unit, QWidget *parent)
    : Slider(name, unit, parent)
{
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setEnabled(false);
    FocusRing::install(this, 4);
}

void ThinSlider::setLargestValue(double value)
{
    Slider::setLargestValue(value);
    setEnabled(maximum() > 0);
}

void ThinSlider::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || isSliderDown())
        return;
    setSliderDown(true);
    mouseMoveEvent(event);
}

void ThinSlider::mouseMoveEvent(QMouseEvent *event)
{
    if (isSliderDown())
        requestPosition(qRound(std::clamp(event->position().x() / width(), 0.0, 1.0) * maximum()));
}

void ThinSlider::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        endDrag();
}

void ThinSlider::cancelDrag()
{
    const QSignalBlocker blocker(this);
    endDrag();
}

void ThinSlider::hideEvent(QHideEvent *)
{
    endDrag();
}

void ThinSlider::keyPressEvent(QKeyEvent *event)
{
    if (event->modifiers() & ~Qt::KeypadModifier || event->key() == Qt::Key_Up
        || event->key() == Qt::Key_Down)
        event->ignore();
    else
        Slider::keyPressEvent(event);
}

void ThinSlider::paintEvent(QPaintEvent *)
{
    const Theme &theme = Theme::current();
    const QColor ink = theme.color(Theme::Color::OnVideo);
    QPainter painter(this);
    const QRectF track(0, (height() - trackHeight) / 2, width(), trackHeight);
    paintBox(painter, track, trackHeight / 2, theme.color(Theme::Color::OnVideoFaint));
    if (!isEnabled())
        return;
    const double along = double(sliderPosition()) / maximum() * width();
    QRectF filled = track;
    filled.setWidth(along);
    paintBox(painter, filled, std::min(trackHeight, along) / 2, ink);
    if (!isSliderDown() && !underMouse() && !hasFocus())
        return;
    const double left = std::clamp(along - knobSize / 2, 0.0, width() - knobSize);
    paintBox(painter, QRectF(left, (height() - knobSize) / 2, knobSize, knobSize), knobSize / 2,
             ink);
}

} // namespace clipwren
