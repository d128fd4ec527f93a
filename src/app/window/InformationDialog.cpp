#include "app/window/InformationDialog.h"

#include "ui/components/Button.h"
#include "ui/components/Label.h"

#include <QPainter>
#include <QVBoxLayout>

namespace clipwren {

InformationDialog::InformationDialog(const QString &title, const QString &heading, int spacing,
                                     QWidget *parent)
    : QDialog(parent), m_column(new QVBoxLayout(this))
{
    setWindowTitle(title);
    m_column->setContentsMargins(28, 24, 28, 20);
    m_column->setSpacing(spacing);
    m_column->setSizeConstraint(QLayout::SetFixedSize);
    m_column->addWidget(new Label(Theme::TextStyle::Heading, Theme::Color::Text, heading));
}

void InformationDialog::addCloseButton()
{
    auto *close = new Button(Button::Style::Bordered, tr("Close"));
    connect(close, &Button::clicked, this, &QDialog::accept);
    close->setFocus();
    m_column->addWidget(close, 0, Qt::AlignRight);
}

void InformationDialog::paintEvent(QPaintEvent *)
{
    QPainter(this).fillRect(rect(), Theme::current().color(Theme::Color::Background));
}

} // namespace clipwren
