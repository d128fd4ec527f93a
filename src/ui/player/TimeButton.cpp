#include "ui/player/TimeButton.h"

#include "ui/components/DigitText.h"
#include "ui/components/FocusRing.h"
#include "ui/components/Theme.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace clipwren {

TimeButton::TimeButton(QWidget *parent) : QAbstractButton(parent)
{
    setFont(Theme::font(Theme::TextStyle::CaptionDigits));
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    FocusRing::install(this, 4);
}

void TimeButton::setTime(const QString &time, const QString &longest)
{
    if (time != text())
        setText(time);
    const double room =
        std::max(DigitText(longest, font()).width(), DigitText(time, font()).width());
    if (m_room != room) {
        m_room = room;
        updateGeometry();
    }
}

QSize TimeButton::sizeHint() const
{
    return {static_cast<int>(std::ceil(m_room)), fontMetrics().height()};
}

void TimeButton::paintEvent(QPaintEvent *)
{
    const DigitText time(text(), font());
    QPainter painter(this);
    painter.setPen(Theme::current().color(Theme::Color::OnVideo));
    const double ascent = fontMetrics().ascent();
    time.paint(painter,
               {width() - time.width(), (height() - fontMetrics().height()) / 2.0 + ascent});
}

} // namespace clipwren
