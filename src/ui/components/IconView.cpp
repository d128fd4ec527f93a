#include "ui/components/IconView.h"

#include <QPainter>

namespace clipwren {

IconView::IconView(Icon icon, int size, Theme::Color color, QWidget *parent)
    : QWidget(parent), m_icon(icon), m_size(size), m_color(color)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void IconView::setIcon(Icon icon)
{
    m_icon = icon;
    update();
}

void IconView::setColor(Theme::Color color)
{
    m_color = color;
    update();
}

void IconView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    m_icon.paint(painter, rect(), Theme::current().color(m_color));
}

} // namespace clipwren
