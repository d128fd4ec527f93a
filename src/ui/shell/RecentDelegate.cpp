#include "ui/shell/RecentDelegate.h"

#include "ui/shell/LibraryListView.h"
#include "ui/shell/LibraryRow.h"
#include "ui/shell/RecentListModel.h"

#include <utility>

namespace clipwren {

namespace {

constexpr double missingOpacity = 0.55;

}

RecentDelegate::RecentDelegate(const RecentListModel &model, std::function<int()> spinnerDegrees,
                               QObject *parent)
    : QStyledItemDelegate(parent), m_model(model), m_spinnerDegrees(std::move(spinnerDegrees))
{
}

QSize RecentDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    return LibraryRow::sizeHint(option, index);
}

LibraryRow RecentDelegate::rowOf(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const auto *list = qobject_cast<const LibraryListView *>(option.widget);
    const DownloadRecord &record = *m_model.record(index);
    const bool exists = m_model.fileExists(record);
    LibraryRow row;
    row.icon = exists ? Icon(u"play.rectangle.fill") : Icon(u"questionmark.video");
    if (m_model.isReencoding(record))
        row.spinnerDegrees = m_spinnerDegrees();
    row.title = record.title;
    row.detail = m_model.dateText(record);
    row.opacity = exists ? 1 : missingOpacity;
    row.selected = option.state.testFlag(QStyle::State_Selected);
    row.ring = list && list->hasRing(index);
    return row;
}

void RecentDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                           const QModelIndex &index) const
{
    if (m_model.record(index))
        rowOf(option, index).paint(*painter, option);
}

bool RecentDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *,
                               const QStyleOptionViewItem &option, const QModelIndex &index)
{
    return m_model.record(index) && rowOf(option, index).showToolTip(*event, option);
}

} // namespace clipwren
