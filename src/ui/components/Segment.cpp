#include "ui/components/Segment.h"

#include "ui/components/FocusRing.h"
#include "ui/components/Theme.h"

#include <QPainter>

namespace clipwren {

Segment::Segment(const QString &text, QWidget *parent) : QAbstractButton(parent)
{
    setText(text);
    setCheckable(true);
    setAutoExclusive(true);
    setFocusPolicy(Qt::StrongFocus);
    setFont(Theme::font(Theme::TextStyle::CalloutLabel));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    FocusRing::install(this, 6);
}

QSize Segment::sizeHint() const
{
    return {fontMetrics().size(Qt::TextShowMnemonic, text()).width() + 24, 24};
}

void Segment::paintEvent(QPaintEvent *)
{
    const Theme &theme = Theme::current();
    QPainter painter(this);
    painter.setPen(theme.color(isChecked() ? Theme::Color::Text : Theme::Color::Secondary));
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextShowMnemonic, text());
}

} // namespace clipwren
