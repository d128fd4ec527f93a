#include "ui/components/Style.h"

#include "ui/components/Icon.h"
#include "ui/components/Painting.h"
#include "ui/components/Theme.h"

#include <QMenu>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>

namespace clipwren {

using namespace Qt::StringLiterals;

namespace {

constexpr int scrollBarWidth = 12;
constexpr int shortestHandle = 32;
constexpr int handleInset = 3;

/// The handle's place in a scroll bar without arrow buttons.
QRect handleRect(const QStyleOptionSlider &bar)
{
    const bool upright = bar.orientation == Qt::Vertical;
    const int length = upright ? bar.rect.height() : bar.rect.width();
    const qint64 span = qint64(bar.maximum) - bar.minimum + bar.pageStep;
    const int handle = span > 0 ? std::clamp(static_cast<int>(length * qint64(bar.pageStep) / span),
                                             std::min(shortestHandle, length), length)
                                : length;
    const int start = QStyle::sliderPositionFromValue(bar.minimum, bar.maximum, bar.sliderPosition,
                                                      length - handle, bar.upsideDown);
    return upright ? QRect(bar.rect.x(), bar.rect.y() + start, bar.rect.width(), handle)
                   : QRect(bar.rect.x() + start, bar.rect.y(), handle, bar.rect.height());
}

constexpr int menuInset = 4;
constexpr int menuPadding = 8; // of an item, on the left and right
constexpr int menuIconSize = 16;
constexpr int menuIconGap = 8;

void drawMenuItem(const QStyleOptionMenuItem &item, QPainter &painter)
{
    const Theme &theme = Theme::current();
    if (item.menuItemType == QStyleOptionMenuItem::Separator) {
        painter.fillRect(QRect(item.rect.left() + menuPadding, item.rect.center().y(),
                               item.rect.width() - 2 * menuPadding, 1),
                         theme.color(Theme::Color::Separator));
        return;
    }
    const bool enabled = item.state.testFlag(QStyle::State_Enabled);
    const bool active = enabled && item.state.testFlag(QStyle::State_Selected);
    if (active)
        paintBox(painter, item.rect, 5, theme.color(Theme::Color::AccentFill));
    // An item may bring a colour of its own, as destructive ones do.
    const QColor ink = active ? theme.color(Theme::Color::OnAccent)
        : enabled             ? item.palette.color(QPalette::Text)
                              : theme.color(Theme::Color::Tertiary);
    QRect place = item.rect.adjusted(menuPadding, 0, -menuPadding, 0);
    const QRect iconPlace(place.left(), place.center().y() - menuIconSize / 2 + 1, menuIconSize,
                          menuIconSize);
    const auto visual = [&item](const QRect &rect) {
        return QStyle::visualRect(item.direction, item.rect, rect);
    };
    if (!item.icon.isNull())
        item.icon.paint(&painter, visual(iconPlace), Qt::AlignCenter,
                        active        ? QIcon::Selected
                            : enabled ? QIcon::Normal
                                      : QIcon::Disabled);
    else if (item.checked)
        Icon(u"checkmark").paint(painter, visual(iconPlace), ink);
    if (item.maxIconWidth > 0 || item.menuHasCheckableItems)
        place.setLeft(iconPlace.right() + 1 + menuIconGap);
    painter.setPen(ink);
    painter.setFont(item.font);
    const QStringList parts = item.text.split(u'\t');
    const auto side = [&item](Qt::Alignment alignment) {
        return static_cast<int>(QStyle::visualAlignment(item.direction, alignment))
            | static_cast<int>(Qt::AlignVCenter) | Qt::TextShowMnemonic | Qt::TextSingleLine;
    };
    painter.drawText(visual(place), side(Qt::AlignLeft), parts.first());
    if (parts.size() > 1)
        painter.drawText(visual(place), side(Qt::AlignRight), parts.last());
}

} // namespace

// The one style that follows a palette everywhere; the desktop's own would mix two looks.
Style::Style() : QProxyStyle(QStyleFactory::create(u"Fusion"_s))
{
}

int Style::pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const
{
    switch (metric) {
    case PM_FocusFrameHMargin:
    case PM_FocusFrameVMargin:
        return 4;
    case PM_ScrollBarExtent:
    // Over the content's margin, so that nothing moves or wraps anew when the bar comes.
    case PM_ScrollView_ScrollBarOverlap:
        return scrollBarWidth;
    case PM_ScrollView_ScrollBarSpacing:
        return 0;
    case PM_MenuHMargin:
    case PM_MenuVMargin:
        return menuInset;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int Style::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                     QStyleHintReturn *returned) const
{
    // The ring is drawn with smooth corners, which a mask would cut.
    if (hint == SH_FocusFrame_Mask)
        return 0;
    // In the pane or window: the control's own place would cut what reaches out of it.
    if (hint == SH_FocusFrame_AboveWidget)
        return 1;
    if (hint == SH_ScrollBar_LeftClickAbsolutePosition)
        return 0;
    return QProxyStyle::styleHint(hint, option, widget, returned);
}

QRect Style::subControlRect(ComplexControl control, const QStyleOptionComplex *option,
                            SubControl part, const QWidget *widget) const
{
    const auto *bar = qstyleoption_cast<const QStyleOptionSlider *>(option);
    if (control != CC_ScrollBar || !bar)
        return QProxyStyle::subControlRect(control, option, part, widget);
    const QRect handle = handleRect(*bar);
    const bool upright = bar->orientation == Qt::Vertical;
    switch (part) {
    case SC_ScrollBarGroove:
        return bar->rect;
    case SC_ScrollBarSlider:
        return handle;
    case SC_ScrollBarSubPage:
        return upright ? QRect(bar->rect.topLeft(), QPoint(bar->rect.right(), handle.top() - 1))
                       : QRect(bar->rect.topLeft(), QPoint(handle.left() - 1, bar->rect.bottom()));
    case SC_ScrollBarAddPage:
        return upright
            ? QRect(QPoint(bar->rect.left(), handle.bottom() + 1), bar->rect.bottomRight())
            : QRect(QPoint(handle.right() + 1, bar->rect.top()), bar->rect.bottomRight());
    default:
        return {};
    }
}

QSize Style::sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &contents,
                              const QWidget *widget) const
{
    const auto *item = qstyleoption_cast<const QStyleOptionMenuItem *>(option);
    if (type != CT_MenuItem || !item)
        return QProxyStyle::sizeFromContents(type, option, contents, widget);
    if (item->menuItemType == QStyleOptionMenuItem::Separator)
        return {contents.width(), 9};
    const bool iconColumn = item->maxIconWidth > 0 || item->menuHasCheckableItems;
    const QStringList parts = item->text.split(u'\t');
    int width = 2 * (menuPadding + menuInset) + (iconColumn ? menuIconSize + menuIconGap : 0);
    for (const QString &part : parts)
        width +=
            item->fontMetrics.boundingRect({}, Qt::TextShowMnemonic, part).width() + menuIconGap;
    return {width, item->fontMetrics.height() + 8};
}

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                          const QWidget *widget) const
{
    if (element != PE_FrameMenu && element != PE_PanelMenu) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    const Theme &theme = Theme::current();
    if (element == PE_PanelMenu)
        painter->fillRect(option->rect, theme.color(Theme::Color::Card));
    painter->save();
    painter->setPen(theme.color(Theme::Color::ButtonBorder));
    painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
    painter->restore();
}

void Style::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                        const QWidget *widget) const
{
    const auto *item = qstyleoption_cast<const QStyleOptionMenuItem *>(option);
    if (element == CE_MenuItem && item) {
        QStyleOptionMenuItem place = *item;
        painter->save();
        // A menu paints its ground and keeps items off its frame by itself, a picker's list not.
        if (!qobject_cast<const QMenu *>(widget)) {
            painter->fillRect(place.rect, Theme::current().color(Theme::Color::Card));
            place.rect.adjust(menuInset, 0, -menuInset, 0);
        }
        drawMenuItem(place, *painter);
        painter->restore();
    } else if (element != CE_MenuEmptyArea) {
        QProxyStyle::drawControl(element, option, painter, widget);
    }
}

void Style::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                               QPainter *painter, const QWidget *widget) const
{
    const auto *bar = qstyleoption_cast<const QStyleOptionSlider *>(option);
    if (control != CC_ScrollBar || !bar) {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        return;
    }
    if (bar->maximum <= bar->minimum)
        return;
    const bool held =
        bar->activeSubControls.testFlag(SC_ScrollBarSlider) && option->state.testFlag(State_Sunken);
    const bool hovered = option->state.testFlag(State_MouseOver);
    const QRectF handle =
        QRectF(handleRect(*bar)).adjusted(handleInset, handleInset, -handleInset, -handleInset);
    painter->save();
    paintBox(*painter, handle, std::min(handle.width(), handle.height()) / 2,
             faded(Theme::current().color(Theme::Color::Secondary),
                   held          ? 0.9
                       : hovered ? 0.7
                                 : 0.45));
    painter->restore();
}

} // namespace clipwren
