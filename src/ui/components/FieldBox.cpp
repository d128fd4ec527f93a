#include "ui/components/FieldBox.h"

#include "ui/components/FocusRing.h"
#include "ui/components/IconView.h"

#include <QHBoxLayout>
#include <QLineEdit>

namespace clipwren {

namespace {

constexpr qreal radius = 10;

}

FieldBox::FieldBox(Icon icon, const QString &name, QWidget *parent)
    : Card(parent), m_lineEdit(new QLineEdit), m_row(new QHBoxLayout(this))
{
    setRadius(radius);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFixedHeight(40);
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
