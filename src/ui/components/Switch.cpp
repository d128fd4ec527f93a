#include "ui/components/Switch.h"

#include "ui/components/FocusRing.h"
#include "ui/components/Painting.h"
#include "ui/components/Theme.h"

#include <QPainter>
#include <QStyle>

namespace clipwren {

namespace {

constexpr QSize track(32, 19);
constexpr int knobInset = 2;
constexpr int gap = 8;
constexpr int ringRoom = 4; // behind the text

int symbolSize()
{
    return Theme::scaled(16);
}

} // namespace

Switch::Switch(const QString &text, Icon icon, QWidget *parent)
    : QAbstractButton(parent), m_icon(icon), m_knob(
                                                 0.2, 0, [this](double) { update(); }, this)
{
    setText(text);
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
    Theme::setTextStyle(*this, Theme::TextStyle::Body);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    FocusRing::install(this, 9);
    connect(this, &QAbstractButton::toggled, this, [this](bool on) {
        // One that nobody sees yet starts where it belongs.
        if (isVisible())
            m_knob.moveTo(on ? 1 : 0);
        else
            m_knob.jumpTo(on ? 1 : 0);
    });
}

QSize Switch::sizeHint() const
{
    int width = track.width();
    if (!m_icon.isNull())
        width += gap + symbolSize();
    if (!text().isEmpty())
        width += gap + fontMetrics().size(Qt::TextShowMnemonic, text()).width() + ringRoom;
    return {width, std::max(track.height(), fontMetrics().height())};
}

void Switch::paintEvent(QPaintEvent *)
{
    const Theme &theme = Theme::current();
    QPainter painter(this);
    if (!isEnabled())
        painter.setOpacity(0.4);
    const auto mirrored = [this](const QRect &place) {
        return QStyle::visualRect(layoutDirection(), rect(), place);
    };

    const int symbol = symbolSize();
    const QRect box = mirrored({QPoint(0, (height() - track.height()) / 2), track});
    const qreal radius = track.height() / 2.0;
    paintBox(painter, box, radius, theme.color(Theme::Color::SwitchOff));
    paintBox(painter, box, radius, faded(theme.color(Theme::Color::AccentFill), m_knob.position()));
    const int side = track.height() - 2 * knobInset;
    const double along =
        layoutDirection() == Qt::RightToLeft ? 1 - m_knob.position() : m_knob.position();
    const QRectF knob(box.x() + knobInset + along * (track.width() - 2 * knobInset - side),
                      box.y() + knobInset, side, side);
    paintBoxShadow(painter, knob, side / 2.0);
    paintBox(painter, knob, side / 2.0, theme.color(Theme::Color::OnAccent));

    int x = track.width() + gap;
    if (!m_icon.isNull()) {
        m_icon.paint(painter, mirrored({x, (height() - symbol) / 2, symbol, symbol}),
                     theme.color(Theme::Color::Secondary));
        x += symbol + gap;
    }
    painter.setPen(theme.color(Theme::Color::Text));
    painter.drawText(
        mirrored({x, 0, width() - x, height()}),
        static_cast<int>(Qt::AlignVCenter) | Qt::TextShowMnemonic
            | static_cast<int>(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft)),
        text());
}

} // namespace clipwren
