#include "ui/components/Painting.h"

#include "ui/components/Theme.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace clipwren {

void paintBox(QPainter &painter, const QRectF &rect, qreal radius, const QColor &fill,
              const QColor &border)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    if (fill.alpha() > 0) {
        painter.setBrush(fill);
        painter.drawRoundedRect(rect, radius, radius);
    }
    if (border.alpha() > 0) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(border, 1));
        painter.drawRoundedRect(rect.adjusted(0.5, 0.5, -0.5, -0.5), radius - 0.5, radius - 0.5);
    }
}

void paintBoxShadow(QPainter &painter, const QRectF &rect, qreal radius)
{
    QPainterPath shadow;
    shadow.addRoundedRect(rect.translated(0, 1), radius, radius);
    QPainterPath box;
    box.addRoundedRect(rect, radius, radius);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(shadow - box, faded(Theme::current().color(Theme::Color::Shadow), 0.3));
}

void paintSpinner(QPainter &painter, const QRectF &rect, int degrees, const QColor &color)
{
    const qreal side = std::min(rect.width(), rect.height());
    const qreal stroke = side / 8;
    QRectF ring(0, 0, side - stroke, side - stroke);
    ring.moveCenter(rect.center());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, stroke, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(ring, (90 - degrees) * 16, -270 * 16);
}

QColor faded(QColor color, double factor)
{
    color.setAlphaF(static_cast<float>(color.alphaF() * factor));
    return color;
}

} // namespace clipwren
