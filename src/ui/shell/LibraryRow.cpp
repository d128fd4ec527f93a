#include "ui/shell/LibraryRow.h"

#include "ui/components/Painting.h"
#include "ui/components/PlainText.h"
#include "ui/components/Theme.h"
#include "ui/shell/LibraryListModel.h"
#include "ui/shell/LibraryListView.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace clipwren {

namespace {

constexpr int rowHeight = 44;
constexpr int margin = 8; // around the background of a chosen row
constexpr int padding = 8;
constexpr qreal radius = 8;
constexpr QSize iconBoxSize(44, 30);
constexpr qreal iconBoxRadius = 6;
constexpr int iconSize = 16;
constexpr int gap = 10;
constexpr int lineGap = 2;
constexpr int tailGap = 4;

QFont titleFont()
{
    return Theme::font(Theme::TextStyle::Label);
}

QFont detailFont()
{
    return Theme::font(Theme::TextStyle::Caption);
}

/// Draws one line at the leading edge and returns its width.
int drawLine(QPainter &painter, const QRect &place, Qt::LayoutDirection direction,
             const QString &text)
{
    const QFontMetrics metrics(painter.font());
    const QString shown = metrics.elidedText(text, Qt::ElideRight, place.width());
    // Else the ellipsis of a text from right to left would stand before it.
    painter.setLayoutDirection(text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    painter.drawText(place,
                     static_cast<int>(QStyle::visualAlignment(direction, Qt::AlignLeft))
                         | static_cast<int>(Qt::AlignAbsolute | Qt::AlignVCenter)
                         | Qt::TextSingleLine | Qt::TextDontClip,
                     shown);
    return metrics.horizontalAdvance(shown);
}

} // namespace

QSize LibraryRow::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index)
{
    const auto *list = qobject_cast<const LibraryListView *>(option.widget);
    return {0, list && index.row() < LibraryListModel::firstItem ? list->leadHeight() : rowHeight};
}

QRect LibraryRow::contents(const QStyleOptionViewItem &option)
{
    return option.rect.adjusted(margin + padding, 0, -margin - padding, 0);
}

QRect LibraryRow::textPlace(const QStyleOptionViewItem &option) const
{
    return contents(option).adjusted(iconBoxSize.width() + gap, 0, -trailingRoom, 0);
}

bool LibraryRow::showToolTip(const QHelpEvent &event, const QStyleOptionViewItem &option) const
{
    const QString line = inOneLine(title);
    if (event.type() != QEvent::ToolTip
        || QFontMetrics(titleFont()).horizontalAdvance(line) <= textPlace(option).width())
        return false;
    QToolTip::showText(event.globalPos(), plainToolTip(line), nullptr, option.rect);
    return true;
}

void LibraryRow::paint(QPainter &painter, const QStyleOptionViewItem &option) const
{
    const Theme &theme = Theme::current();
    painter.save();
    const QRectF ground = option.rect.adjusted(margin, 0, -margin, 0);
    if (selected)
        paintBox(painter, ground, radius, theme.color(Theme::Color::AccentFill));
    if (ring) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setBrush(Qt::NoBrush);
        painter.setPen(
            QPen(theme.color(selected ? Theme::Color::OnAccent : Theme::Color::FocusRing), 2));
        const qreal inset = selected ? 3 : 1;
        painter.drawRoundedRect(ground.adjusted(inset, inset, -inset, -inset), radius - inset,
                                radius - inset);
    }
    painter.setOpacity(opacity);
    const QRect content = contents(option);
    const QRect box(QPoint(content.left(), content.center().y() - iconBoxSize.height() / 2 + 1),
                    iconBoxSize);
    paintIconBox(painter, QStyle::visualRect(option.direction, option.rect, box));
    paintTexts(painter, QStyle::visualRect(option.direction, option.rect, textPlace(option)),
               option.direction);
    painter.restore();
}

void LibraryRow::paintIconBox(QPainter &painter, const QRect &box) const
{
    const Theme &theme = Theme::current();
    paintBox(painter, box, iconBoxRadius,
             theme.color(selected ? Theme::Color::OnAccentFaint : Theme::Color::Quaternary));
    const QRect place(box.center() - QPoint(iconSize / 2 - 1, iconSize / 2 - 1),
                      QSize(iconSize, iconSize));
    const QColor ink = theme.color(selected ? Theme::Color::OnAccent : Theme::Color::Secondary);
    if (spinnerDegrees)
        paintSpinner(painter, place, *spinnerDegrees, ink);
    else
        icon.paint(painter, place, ink);
}

void LibraryRow::paintTexts(QPainter &painter, const QRect &place,
                            Qt::LayoutDirection direction) const
{
    const Theme &theme = Theme::current();
    const int titleHeight = QFontMetrics(titleFont()).height();
    const int detailHeight = QFontMetrics(detailFont()).height();
    const int top = place.top() + (place.height() - titleHeight - lineGap - detailHeight) / 2;
    painter.setFont(titleFont());
    painter.setPen(theme.color(selected ? Theme::Color::OnAccent : Theme::Color::Text));
    drawLine(painter, {place.left(), top, place.width(), titleHeight}, direction, inOneLine(title));

    painter.setFont(detailFont());
    painter.setPen(
        theme.color(selected ? Theme::Color::OnAccentSecondary : Theme::Color::Secondary));
    const QRect line(place.left(), top + titleHeight + lineGap, place.width(), detailHeight);
    const int tailRoom = detailTail.isEmpty()
        ? 0
        : QFontMetrics(detailFont()).horizontalAdvance(detailTail) + tailGap;
    const auto part = [&](int from, int width) {
        return QStyle::visualRect(direction, line,
                                  {line.left() + from, line.top(), width, line.height()});
    };
    const int used = drawLine(painter, part(0, line.width() - tailRoom), direction, detail);
    if (tailRoom > 0)
        drawLine(painter, part(used + tailGap, tailRoom), direction, detailTail);
}

} // namespace clipwren
