#include "ui/shell/HistoryDelegate.h"

#include "ui/components/Theme.h"
#include "ui/shell/HistoryListModel.h"
#include "ui/shell/LibraryListView.h"
#include "ui/shell/LibraryRow.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <utility>

namespace clipwren {

namespace {

constexpr int buttonSize = 18;
constexpr int buttonGap = 10;
// A picture of 18 pixels is hard to hit.
constexpr int buttonMargin = 6;

QRect buttonPlace(const QStyleOptionViewItem &option)
{
    const QRect content = LibraryRow::contents(option);
    const QRect place(content.right() + 1 - buttonSize, content.center().y() - buttonSize / 2 + 1,
                      buttonSize, buttonSize);
    return QStyle::visualRect(option.direction, option.rect, place);
}

bool isOnButton(const QStyleOptionViewItem &option, const QPoint &point)
{
    return buttonPlace(option)
        .adjusted(-buttonMargin, -buttonMargin, buttonMargin, buttonMargin)
        .contains(point);
}

LibraryRow rowOf(const QStyleOptionViewItem &option, const HistoryListModel &model,
                 const HistoryEntry &entry, const QModelIndex &index)
{
    const auto *list = qobject_cast<const LibraryListView *>(option.widget);
    LibraryRow row;
    row.icon = u"clock.arrow.circlepath";
    row.title = entry.title;
    row.detail = model.dateText(entry);
    row.detailTail = HistoryListModel::countText(entry);
    row.ring = list && list->hasRing(index);
    row.trailingRoom = buttonSize + buttonGap;
    return row;
}

} // namespace

HistoryDelegate::HistoryDelegate(const HistoryListModel &model, QObject *parent)
    : QStyledItemDelegate(parent), m_model(model)
{
}

QSize HistoryDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    return LibraryRow::sizeHint(option, index);
}

void HistoryDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                            const QModelIndex &index) const
{
    const HistoryEntry *entry = m_model.entry(index);
    if (!entry)
        return;
    rowOf(option, m_model, *entry, index).paint(*painter, option);
    const bool hovered = option.state.testFlag(QStyle::State_MouseOver);
    Icon(u"arrow.down.circle")
        .paint(*painter, buttonPlace(option),
               Theme::current().color(hovered ? Theme::Color::Accent : Theme::Color::Secondary));
}

bool HistoryDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view,
                                const QStyleOptionViewItem &option, const QModelIndex &index)
{
    const HistoryEntry *entry = m_model.entry(index);
    if (!entry)
        return false;
    if (event->type() == QEvent::ToolTip && isOnButton(option, event->pos())) {
        QToolTip::showText(event->globalPos(), tr("Re-download"), view->viewport(),
                           buttonPlace(option));
        return true;
    }
    return rowOf(option, m_model, *entry, index).showToolTip(*event, option);
}

bool HistoryDelegate::editorEvent(QEvent *event, QAbstractItemModel *,
                                  const QStyleOptionViewItem &option, const QModelIndex &index)
{
    const bool isPress =
        event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    if (!isPress && event->type() != QEvent::MouseButtonRelease)
        return false;
    const auto *mouse = static_cast<const QMouseEvent *>(event);
    if (mouse->button() != Qt::LeftButton)
        return false;
    const bool onButton = m_model.entry(index) && isOnButton(option, mouse->position().toPoint());
    if (isPress) {
        m_pressed = onButton ? QPersistentModelIndex(index) : QPersistentModelIndex();
        return onButton;
    }
    if (std::exchange(m_pressed, {}) != index || !onButton)
        return false;
    Q_EMIT redownloadClicked(index);
    return true;
}

} // namespace clipwren
