#include "ui/components/Pill.h"

#include "ui/components/Painting.h"
#include "ui/components/Theme.h"

#include <QPainter>

#include <array>

namespace clipwren {

namespace {

constexpr int paddingAcross = 8;
constexpr int iconSize = 13;
constexpr int gap = 5;

struct Tones {
    Theme::Color icon;
    Theme::Color text;
    Theme::Color fill;
};

// By tone: green, blue, orange.
constexpr std::array tonesTable = {
    Tones{Theme::Color::Green, Theme::Color::GreenText, Theme::Color::GreenFill},
    Tones{Theme::Color::Blue, Theme::Color::BlueText, Theme::Color::BlueFill},
    Tones{Theme::Color::OrangeIcon, Theme::Color::OrangeText, Theme::Color::OrangeFill},
};

} // namespace

Pill::Pill(QWidget *parent) : QLabel(parent)
{
    setFont(Theme::font(Theme::TextStyle::CaptionLabel));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void Pill::display(Tone tone, Icon icon, const QString &text)
{
    m_tone = tone;
    m_icon = icon;
    setText(text);
    updateGeometry();
    update();
}

QSize Pill::sizeHint() const
{
    return {2 * paddingAcross + iconSize + gap + fontMetrics().horizontalAdvance(text()), 23};
}

void Pill::paintEvent(QPaintEvent *)
{
    const Theme &theme = Theme::current();
    const Tones &tones = tonesTable[static_cast<std::size_t>(m_tone)];
    QPainter painter(this);
    paintBox(painter, rect(), height() / 2.0, theme.color(tones.fill));
    m_icon.paint(painter, QRect(paddingAcross, (height() - iconSize) / 2, iconSize, iconSize),
                 theme.color(tones.icon));
    painter.setPen(theme.color(tones.text));
    painter.drawText(rect().adjusted(paddingAcross + iconSize + gap, 0, 0, 0),
                     Qt::AlignLeft | Qt::AlignVCenter, text());
}

} // namespace clipwren
