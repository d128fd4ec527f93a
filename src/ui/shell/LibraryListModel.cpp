#include "ui/shell/LibraryListModel.h"

#include <algorithm>

namespace clipwren {

int LibraryListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_ids.size()) + firstItem;
}

std::optional<qsizetype> LibraryListModel::itemAt(const QModelIndex &index) const
{
    const qsizetype item = index.row() - firstItem;
    return index.isValid() && item >= 0 && item < m_ids.size() ? std::optional(item) : std::nullopt;
}

QModelIndex LibraryListModel::indexOf(const QUuid &id) const
{
    const qsizetype item = m_ids.indexOf(id);
    return item < 0 ? QModelIndex() : index(static_cast<int>(item) + firstItem);
}

QVariant LibraryListModel::data(const QModelIndex &index, int role) const
{
    const auto item = itemAt(index);
    // While rows come and go, the list and the rows do not match.
    if (!item || m_changing)
        return {};
    if (role == Qt::DisplayRole)
        return title(*item);
    if (role == Qt::AccessibleTextRole)
        return accessibleText(*item);
    return {};
}

Qt::ItemFlags LibraryListModel::flags(const QModelIndex &index) const
{
    return itemAt(index) ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren
                         : Qt::NoItemFlags;
}

void LibraryListModel::setIds(const QList<QUuid> &ids)
{
    const qsizetype shorter = std::min(m_ids.size(), ids.size());
    qsizetype same = 0; // at the beginning
    while (same < shorter && m_ids.at(same) == ids.at(same))
        ++same;
    qsizetype sameAtEnd = 0;
    while (sameAtEnd < shorter - same
           && m_ids.at(m_ids.size() - 1 - sameAtEnd) == ids.at(ids.size() - 1 - sameAtEnd))
        ++sameAtEnd;
    const auto removed = static_cast<int>(m_ids.size() - same - sameAtEnd);
    const auto inserted = static_cast<int>(ids.size() - same - sameAtEnd);
    const int first = static_cast<int>(same) + firstItem;
    // Rows that others take the place of are not moved, only drawn again.
    const int replaced = std::min(removed, inserted);

    m_changing = true;
    if (removed > replaced) {
        beginRemoveRows({}, first + replaced, first + removed - 1);
        m_ids = ids;
        endRemoveRows();
    } else if (inserted > replaced) {
        beginInsertRows({}, first + replaced, first + inserted - 1);
        m_ids = ids;
        endInsertRows();
    }
    m_ids = ids;
    m_changing = false;
    if (!m_ids.isEmpty())
        Q_EMIT dataChanged(index(firstItem), index(rowCount() - 1));
}

} // namespace clipwren
