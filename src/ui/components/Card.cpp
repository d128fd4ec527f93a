#include "ui/components/Card.h"

#include "ui/components/FocusRing.h"
#include "ui/components/Painting.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QPainter>
#include <QStyle>

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

FieldBox::FieldBox(Icon icon, const QString &name, QWidget *parent)
    : Card(parent), m_lineEdit(new QLineEdit), m_row(new QHBoxLayout(this))
{
    constexpr qreal radius = 10;
    setRadius(radius);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setMinimumHeight(40);
    setCursor(Qt::IBeamCursor);
    // The text field brings two pixels of its own.
    m_row->setContentsMargins(icon.isNull() ? 11 : 13, 0, 13, 0);
    m_row->setSpacing(9);
    if (!icon.isNull())
        m_row->addWidget(new IconView(icon, 16, Theme::Color::Secondary));
    m_row->addWidget(m_lineEdit, 1);
    m_lineEdit->setFrame(false);
    m_lineEdit->setAccessibleName(name);
    // The box is the field's ground.
    m_lineEdit->setAutoFillBackground(false);
    m_lineEdit->setBackgroundRole(QPalette::NoRole);
    FocusRing::install(m_lineEdit, radius, FocusRing::When::Always, this);
}

void FieldBox::addTrailing(QWidget *widget)
{
    widget->setCursor(Qt::ArrowCursor);
    m_row->addWidget(widget);
}

void FieldBox::mousePressEvent(QMouseEvent *)
{
    m_lineEdit->setFocus(Qt::MouseFocusReason);
}

} // namespace clipwren
