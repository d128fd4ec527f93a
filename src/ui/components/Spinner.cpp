#include "ui/components/Spinner.h"

#include "ui/components/Painting.h"
#include "ui/components/Theme.h"

#include <QPainter>

namespace clipwren {

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
