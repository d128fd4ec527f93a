#include "ui/components/Style.h"

#include "ui/components/Painting.h"
#include "ui/components/Theme.h"

#include <QPainter>
#include <QStyleFactory>
#include <QStyleOptionSlider>

namespace clipwren {

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

} // namespace

// The one style that follows a palette everywhere; the desktop's own would mix two looks.
Style::Style() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion")))
{
}

int Style::pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const
{
    switch (metric) {
    case PM_FocusFrameHMargin:
    case PM_FocusFrameVMargin:
        return 4;
    case PM_ScrollBarExtent:
        return scrollBarWidth;
    case PM_ScrollView_ScrollBarSpacing:
        return 0;
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
