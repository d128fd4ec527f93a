#include "ui/components/Progress.h"

#include "ui/components/Painting.h"
#include "ui/components/Theme.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace clipwren {

LinearProgress::LinearProgress(QWidget *parent) : QProgressBar(parent)
{
    setRange(0, 1000);
    setValue(0);
    setTextVisible(false);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAccessibleName(tr("Progress"));
}

void LinearProgress::setFraction(double fraction)
{
    const double inside = std::isnan(fraction) ? 0 : std::clamp(fraction, 0.0, 1.0);
    setValue(static_cast<int>(std::lround(inside * maximum())));
}

void LinearProgress::paintEvent(QPaintEvent *)
{
    const Theme &theme = Theme::current();
    const QRectF track = rect();
    const qreal radius = track.height() / 2;
    QPainter painter(this);
    paintBox(painter, track, radius, theme.color(Theme::Color::Quaternary));

    QRectF filled = track;
    filled.setWidth(track.width() * value() / maximum());
    if (layoutDirection() == Qt::RightToLeft)
        filled.moveRight(track.right());
    QPainterPath shape;
    shape.addRoundedRect(track, radius, radius);
    painter.setClipPath(shape);
    paintBox(painter, filled, std::min(radius, filled.width() / 2),
             theme.color(Theme::Color::Accent));
}

Spinner::Spinner(int size, QWidget *parent) : QProgressBar(parent), m_size(size)
{
    setRange(0, 0);
    setTextVisible(false);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAccessibleName(tr("In progress"));
}

void Spinner::showEvent(QShowEvent *)
{
    if (!Theme::current().reducedMotion())
        m_timer.start(spinnerStepMilliseconds, this);
}

void Spinner::hideEvent(QHideEvent *)
{
    m_timer.stop();
}

void Spinner::timerEvent(QTimerEvent *)
{
    m_degrees = (m_degrees + spinnerStepDegrees) % 360;
    update();
}

void Spinner::paintEvent(QPaintEvent *)
{
    QRectF ring(0, 0, m_size, m_size);
    ring.moveCenter(QRectF(rect()).center());
    QPainter painter(this);
    paintSpinner(painter, ring, m_degrees, Theme::current().color(Theme::Color::Secondary));
}

} // namespace clipwren
