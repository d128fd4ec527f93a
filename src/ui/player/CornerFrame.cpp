#include "ui/player/CornerFrame.h"

#include <QPainter>
#include <QPainterPath>

namespace clipwren {

CornerFrame::CornerFrame(QWidget *parent) : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void CornerFrame::setRadius(double radius)
{
    m_radius = radius;
    update();
}

void CornerFrame::setBackdrop(const QColor &color)
{
    m_backdrop = color;
    update();
}

void CornerFrame::setOutline(const QColor &color, double width)
{
    m_outline = color;
    m_outlineWidth = width;
    update();
}

void CornerFrame::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath corners;
    corners.addRect(rect());
    corners.addRoundedRect(rect(), m_radius, m_radius);
    painter.fillPath(corners,
                     m_backdrop.isValid() ? m_backdrop : palette().color(QPalette::Window));
    if (!m_outline.isValid())
        return;
    const double inset = m_outlineWidth / 2;
    painter.setPen(QPen(m_outline, m_outlineWidth));
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), m_radius - inset,
                            m_radius - inset);
}

} // namespace clipwren
