#include "ui/components/Painting.h"

#include "ui/components/Theme.h"

#include <QPainter>
#include <QPainterPath>

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

QColor faded(QColor color, double factor)
{
    color.setAlphaF(static_cast<float>(color.alphaF() * factor));
    return color;
}

} // namespace clipwren
