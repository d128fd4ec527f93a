#include "ui/shell/ListFooter.h"

#include "ui/components/Button.h"
#include "ui/components/Divider.h"
#include "ui/components/Label.h"

#include <QHBoxLayout>

namespace clipwren {

ListFooter::ListFooter(Icon icon, const QString &clearText, QWidget *parent)
    : QWidget(parent), m_count(new Label(Theme::TextStyle::CaptionDigits, Theme::Color::Tertiary))
{
    auto *clear = new Button(Button::Style::Borderless, clearText, icon);
    clear->setSize(Button::Size::Small);
    clear->setTextStyle(Theme::TextStyle::Callout);
    clear->setSymbolGap(6);
    clear->setDestructive(true);
    connect(clear, &Button::clicked, this, &ListFooter::clearRequested);

    auto *row = new QHBoxLayout;
    // The button is taller than its text.
    row->setContentsMargins(12, 4, 12, 4);
    row->addWidget(clear);
    row->addStretch(1);
    row->addWidget(m_count);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(new Divider);
    column->addLayout(row);
}

void ListFooter::setCount(qsizetype count)
{
    m_count->setText(QString::number(count));
    setVisible(count > 0);
}

} // namespace clipwren
