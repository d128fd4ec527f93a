#include "ui/shell/LibraryDelegate.h"

#include "ui/components/Painting.h"
#include "ui/components/TextLine.h"
#include "ui/components/Theme.h"
#include "ui/shell/LibraryListModel.h"
#include "ui/shell/LibraryListView.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <utility>

namespace clipwren {

namespace {

constexpr int leastRowHeight = 44;
constexpr int textMargin = 5; // above and below the texts of a row
constexpr int margin = 8; // around the background of a selected row
constexpr int padding = 8;
constexpr qreal radius = 8;
constexpr QSize iconBoxSize(44, 30);
constexpr qreal iconBoxRadius = 6;
constexpr int iconSize = 16;
constexpr int gap = 10;
constexpr int lineGap = 2;
constexpr int tailGap = 4;
constexpr double missingOpacity = 0.55;
constexpr int buttonSize = 18;
// The button takes clicks this far around its picture, which alone is hard to hit.
constexpr int buttonMargin = 6;

bool isItem(const QModelIndex &index)
{
    return index.row() >= LibraryListModel::firstItem;
}

bool isMissing(const QModelIndex &index)
{
    return index.data(LibraryListModel::MissingRole).toBool();
}

bool isSelected(const QStyleOptionViewItem &option)
{
    return option.state.testFlag(QStyle::State_Selected);
}

QColor ink(const QStyleOptionViewItem &option, Theme::Color usual, Theme::Color selected)
{
    return Theme::current().color(isSelected(option) ? selected : usual);
}

/// The room between the row's edges and what stands in it.
QRect contents(const QStyleOptionViewItem &option)
{
    return option.rect.adjusted(margin + padding, 0, -margin - padding, 0);
}

QRect buttonPlace(const QStyleOptionViewItem &option)
{
    const QRect content = contents(option);
    const QRect place(content.right() + 1 - buttonSize, content.center().y() - buttonSize / 2 + 1,
                      buttonSize, buttonSize);
    return QStyle::visualRect(option.direction, option.rect, place);
}

/// Draws one line at the leading edge and returns its width.
int drawLine(QPainter &painter, const QRect &place, Qt::LayoutDirection direction,
             const QString &text)
{
    const QFontMetrics metrics(painter.font());
    const QString shown = metrics.elidedText(text, Qt::ElideRight, place.width());
    // Without it, the ellipsis of a right-to-left text would be drawn at the wrong end.
    painter.setLayoutDirection(text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    painter.drawText(place,
                     static_cast<int>(QStyle::visualAlignment(direction, Qt::AlignLeft))
                         | static_cast<int>(Qt::AlignAbsolute | Qt::AlignVCenter)
                         | Qt::TextSingleLine | Qt::TextDontClip,
                     shown);
    return metrics.horizontalAdvance(shown);
}

} // namespace

LibraryDelegate::LibraryDelegate(LibraryListView &view) : QStyledItemDelegate(&view), m_view(view)
{
    view.setItemDelegate(this);
}

void LibraryDelegate::setRowButton(Icon icon, const QString &toolTip)
{
    m_button = icon;
    m_buttonToolTip = toolTip;
}

QSize LibraryDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    if (!isItem(index))
        return {0, m_view.headerHeight()};
    // By the view's font, which is no smaller than the two of a row: this is asked for each row.
    const int lines = 2 * option.fontMetrics.height() + lineGap;
    return {0, std::max(leastRowHeight, lines + 2 * textMargin)};
}

QRect LibraryDelegate::textPlace(const QStyleOptionViewItem &option) const
{
    const int buttonRoom = m_button.isNull() ? 0 : buttonSize + gap;
    return contents(option).adjusted(iconBoxSize.width() + gap, 0, -buttonRoom, 0);
}

void LibraryDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                            const QModelIndex &index) const
{
    if (!isItem(index))
        return;
    painter->save();
    paintBackground(*painter, option, index);
    painter->setOpacity(isMissing(index) ? missingOpacity : 1);
    paintIconBox(*painter, option, index);
    painter->setOpacity(1);
    paintTexts(*painter, option, index);
    painter->restore();
    paintButton(*painter, option);
}

void LibraryDelegate::paintBackground(QPainter &painter, const QStyleOptionViewItem &option,
                                      const QModelIndex &index) const
{
    const QRectF background = option.rect.adjusted(margin, 0, -margin, 0);
    if (isSelected(option))
        paintBox(painter, background, radius, Theme::current().color(Theme::Color::AccentFill));
    if (!m_view.hasRing(index))
        return;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(ink(option, Theme::Color::FocusRing, Theme::Color::OnAccent), 2));
    const qreal inset = isSelected(option) ? 3 : 1;
    painter.drawRoundedRect(background.adjusted(inset, inset, -inset, -inset), radius - inset,
                            radius - inset);
}

void LibraryDelegate::paintIconBox(QPainter &painter, const QStyleOptionViewItem &option,
                                   const QModelIndex &index) const
{
    const QRect content = contents(option);
    const QRect box = QStyle::visualRect(
        option.direction, option.rect,
        {QPoint(content.left(), content.center().y() - iconBoxSize.height() / 2 + 1), iconBoxSize});
    paintBox(painter, box, iconBoxRadius,
             ink(option, Theme::Color::Quaternary, Theme::Color::OnAccentFaint));
    const QRect place(box.center() - QPoint(iconSize / 2 - 1, iconSize / 2 - 1),
                      QSize(iconSize, iconSize));
    const QColor color = ink(option, Theme::Color::Secondary, Theme::Color::OnAccent);
    if (index.data(LibraryListModel::SpinnerRole).toBool())
        paintSpinner(painter, place, m_view.spinnerDegrees(), color);
    else
        index.data(LibraryListModel::IconRole).value<Icon>().paint(painter, place, color);
}

void LibraryDelegate::paintTexts(QPainter &painter, const QStyleOptionViewItem &option,
                                 const QModelIndex &index) const
{
    const QFont titleFont = Theme::font(Theme::TextStyle::Label);
    const QFont detailFont = Theme::font(Theme::TextStyle::Caption);
    const int titleHeight = QFontMetrics(titleFont).height();
    const int detailHeight = QFontMetrics(detailFont).height();
    const QRect place = QStyle::visualRect(option.direction, option.rect, textPlace(option));
    const int top = place.top() + (place.height() - titleHeight - lineGap - detailHeight) / 2;
    // Dimmed by colours of their own: faded as the symbol is, they could not be read.
    const QColor dimmed = ink(option, Theme::Color::Tertiary, Theme::Color::OnAccentSecondary);
    painter.setFont(titleFont);
    painter.setPen(isMissing(index) ? dimmed
                                    : ink(option, Theme::Color::Text, Theme::Color::OnAccent));
    drawLine(painter, {place.left(), top, place.width(), titleHeight}, option.direction,
             inOneLine(index.data().toString()));

    painter.setFont(detailFont);
    painter.setPen(isMissing(index)
                       ? dimmed
                       : ink(option, Theme::Color::Secondary, Theme::Color::OnAccentSecondary));
    const QRect line(place.left(), top + titleHeight + lineGap, place.width(), detailHeight);
    const QString tail = index.data(LibraryListModel::DetailTailRole).toString();
    const int tailRoom =
        tail.isEmpty() ? 0 : QFontMetrics(detailFont).horizontalAdvance(tail) + tailGap;
    const auto part = [&](int from, int width) {
        return QStyle::visualRect(option.direction, line,
                                  {line.left() + from, line.top(), width, line.height()});
    };
    const int used = drawLine(painter, part(0, line.width() - tailRoom), option.direction,
                              index.data(LibraryListModel::DetailRole).toString());
    if (tailRoom > 0)
        drawLine(painter, part(used + tailGap, tailRoom), option.direction, tail);
}

void LibraryDelegate::paintButton(QPainter &painter, const QStyleOptionViewItem &option) const
{
    const bool hovered = option.state.testFlag(QStyle::State_MouseOver);
    m_button.paint(
        painter, buttonPlace(option),
        Theme::current().color(hovered ? Theme::Color::Accent : Theme::Color::Secondary));
}

bool LibraryDelegate::isOnButton(const QStyleOptionViewItem &option, const QPoint &point) const
{
    return !m_button.isNull()
        && buttonPlace(option)
               .adjusted(-buttonMargin, -buttonMargin, buttonMargin, buttonMargin)
               .contains(point);
}

bool LibraryDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view,
                                const QStyleOptionViewItem &option, const QModelIndex &index)
{
    if (!isItem(index) || event->type() != QEvent::ToolTip)
        return false;
    if (isOnButton(option, event->pos())) {
        QToolTip::showText(event->globalPos(), m_buttonToolTip, view->viewport(),
                           buttonPlace(option));
        return true;
    }
    // The whole title, where the row shows less of it.
    const QString title = inOneLine(index.data().toString());
    if (QFontMetrics(Theme::font(Theme::TextStyle::Label)).horizontalAdvance(title)
        <= textPlace(option).width())
        return false;
    QToolTip::showText(event->globalPos(), plainToolTip(title), nullptr, option.rect);
    return true;
}

bool LibraryDelegate::editorEvent(QEvent *event, QAbstractItemModel *,
                                  const QStyleOptionViewItem &option, const QModelIndex &index)
{
    const bool isPress =
        event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    if (!isPress && event->type() != QEvent::MouseButtonRelease)
        return false;
    const auto *mouse = static_cast<const QMouseEvent *>(event);
    if (mouse->button() != Qt::LeftButton)
        return false;
    const bool onButton = isItem(index) && isOnButton(option, mouse->position().toPoint());
    if (isPress) {
        m_pressed = onButton ? QPersistentModelIndex(index) : QPersistentModelIndex();
        return onButton;
    }
    if (std::exchange(m_pressed, {}) != index || !onButton)
        return false;
    Q_EMIT rowButtonClicked(index);
    return true;
}

} // namespace clipwren
