#include "ui/components/Divider.h"

#include "ui/components/Painting.h"
#include "ui/components/Theme.h"

#include <QPainter>
#include <QStyle>

namespace clipwren {

Divider::Divider(int inset, double opacity, QWidget *parent)
    : QWidget(parent), m_inset(inset), m_opacity(opacity)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void Divider::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(
        QStyle::visualRect(layoutDirection(), rect(), rect().adjusted(m_inset, 0, 0, 0)),
        faded(Theme::current().color(Theme::Color::Separator), m_opacity));
}

} // namespace clipwren
