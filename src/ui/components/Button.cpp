#include "ui/components/Button.h"

#include "ui/components/FocusRing.h"
#include "ui/components/Painting.h"
#include "ui/components/TextLine.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPainter>

#include <array>

namespace clipwren {

namespace {

struct Metrics {
    int height;
    int radius;
    int padding; // on the left and right
    int square; // side of a button with a symbol alone
    int loneSymbol;
};

struct Content {
    int symbolSize;
    int gap; // between symbol and text
    Theme::TextStyle text;
};

// Each by size: small, regular, large.
constexpr std::array metricsTable = {Metrics{24, 6, 11, 22, 16}, Metrics{29, 7, 13, 28, 16},
                                     Metrics{37, 9, 19, 32, 18}};
constexpr std::array contentTable = {
    Content{14, 5, Theme::TextStyle::CalloutLabel},
    Content{14, 5, Theme::TextStyle::Label},
    Content{16, 8, Theme::TextStyle::LargeButton},
};
constexpr std::array prominentTable = {
    Content{14, 6, Theme::TextStyle::CalloutStrong},
    Content{16, 7, Theme::TextStyle::Strong},
    Content{16, 8, Theme::TextStyle::LargeButton},
};

const Metrics &metricsOf(Button::Size size)
{
    return metricsTable[static_cast<std::size_t>(size)];
}

const Content &contentOf(Button::Style style, Button::Size size)
{
    return (style == Button::Style::Prominent ? prominentTable
                                              : contentTable)[static_cast<std::size_t>(size)];
}

constexpr double disabledOpacity = 0.4;

} // namespace

Button::Button(Style style, const QString &text, Icon icon, QWidget *parent)
    : QAbstractButton(parent), m_style(style), m_symbol(icon),
      m_tint(text.isEmpty() ? Theme::Color::Secondary : Theme::Color::Accent)
{
    setText(text);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    updateFont();
    FocusRing::install(this, metricsOf(m_size).radius);
}

Button *Button::iconOnly(Icon icon, const QString &toolTip, QWidget *parent)
{
    auto *button = new Button(Style::Borderless, {}, icon, parent);
    button->setToolTip(toolTip);
    button->setAccessibleName(toolTip);
    return button;
}

void Button::setSize(Size size)
{
    m_size = size;
    updateFont();
}

void Button::setSymbol(Icon icon)
{
    if (m_symbol == icon)
        return;
    m_symbol = icon;
    updateGeometry();
    update();
}

void Button::setDestructive(bool destructive)
{
    m_destructive = destructive;
    update();
}

void Button::setTint(Theme::Color tint)
{
    m_tint = tint;
    update();
}

void Button::setTextStyle(Theme::TextStyle style)
{
    m_textStyle = style;
    updateFont();
}

void Button::setSymbolGap(int gap)
{
    m_symbolGap = gap;
    updateGeometry();
    update();
}

void Button::updateFont()
{
    Theme::setTextStyle(*this, m_textStyle.value_or(contentOf(m_style, m_size).text));
    updateGeometry();
    update();
}

QSize Button::sizeHint() const
{
    const Metrics &metrics = metricsOf(m_size);
    if (text().isEmpty())
        return {metrics.square, metrics.square};
    const int padding = m_style == Style::Borderless ? 0 : metrics.padding;
    const int width = fontMetrics().size(Qt::TextShowMnemonic, text()).width();
    return {2 * padding + symbolRoom() + width,
            controlHeight(fontMetrics().height(), metrics.height)};
}

/// The width of the symbol and the gap behind it.
int Button::symbolRoom() const
{
    const Content &content = contentOf(m_style, m_size);
    return m_symbol.isNull()
        ? 0
        : Theme::scaled(content.symbolSize) + m_symbolGap.value_or(content.gap);
}

bool Button::event(QEvent *event)
{
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverLeave)
        update();
    return QAbstractButton::event(event);
}

void Button::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        QAbstractButton::keyPressEvent(event);
    // One that is held down was meant for what had the focus before.
    else if (!event->isAutoRepeat())
        click();
}

QColor Button::foreground() const
{
    const Theme &theme = Theme::current();
    if (m_style == Style::Prominent)
        return theme.color(Theme::Color::OnAccent);
    if (m_destructive)
        return theme.color(Theme::Color::Red);
    return theme.color(m_style == Style::Borderless ? m_tint : Theme::Color::Text);
}

void Button::paintBackground(QPainter &painter) const
{
    const Theme &theme = Theme::current();
    const qreal radius = metricsOf(m_size).radius;
    const QRectF box = rect();
    if (m_style == Style::Prominent) {
        const QColor fill = m_destructive ? theme.color(Theme::Color::RedFill)
                                          : theme.color(Theme::Color::AccentFill);
        paintBox(painter, box, radius, fill);
    } else if (m_style == Style::Bordered) {
        paintBox(painter, box, radius, theme.color(Theme::Color::Button),
                 theme.color(Theme::Color::ButtonBorder));
    }
    const bool overlaid = m_style != Style::Borderless || text().isEmpty();
    if (isEnabled() && overlaid && isDown())
        paintBox(painter, box, radius, theme.color(Theme::Color::Pressed));
    else if (isEnabled() && overlaid && underMouse())
        paintBox(painter, box, radius, theme.color(Theme::Color::Hover));
}

void Button::paintEvent(QPaintEvent *)
{
    const Content &content = contentOf(m_style, m_size);
    QPainter painter(this);
    if (!isEnabled())
        painter.setOpacity(disabledOpacity);
    paintBackground(painter);

    QColor ink = foreground();
    if (m_style == Style::Borderless && !text().isEmpty() && isDown())
        ink = faded(ink, 0.6);
    if (text().isEmpty()) {
        const int side = metricsOf(m_size).loneSymbol;
        QRectF place(0, 0, side, side);
        place.moveCenter(QRectF(rect()).center());
        m_symbol.paint(painter, place, ink);
        return;
    }
    const int textWidth = fontMetrics().size(Qt::TextShowMnemonic, text()).width();
    const int left = (width() - textWidth - symbolRoom()) / 2;
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    const int symbolSize = Theme::scaled(content.symbolSize);
    const QRect symbolPlace(mirrored ? width() - left - symbolSize : left,
                            (height() - symbolSize) / 2, symbolSize, symbolSize);
    m_symbol.paint(painter, symbolPlace, ink);
    painter.setPen(ink);
    painter.drawText(QRect(mirrored ? left : left + symbolRoom(), 0, textWidth, height()),
                     Qt::AlignCenter | Qt::TextShowMnemonic, text());
}

} // namespace clipwren
