#include "ui/components/Card.h"

#include "ui/components/Painting.h"

#include <QPainter>

namespace clipwren {

Card::Card(QWidget *parent) : QWidget(parent)
{
}

Card::Card(Theme::Color fill, qreal radius, QWidget *parent)
    : QWidget(parent), m_fill(fill), m_hasBorder(false), m_radius(radius)
{
}

void Card::setRadius(qreal radius)
{
    m_radius = radius;
    update();
}

void Card::paintEvent(QPaintEvent *)
{
    const Theme &theme = Theme::current();
    QPainter painter(this);
    paintBox(painter, rect(), m_radius, theme.color(m_fill),
             m_hasBorder ? theme.color(Theme::Color::CardBorder) : QColor(Qt::transparent));
}

} // namespace clipwren
