#include "ui/shell/HistoryListModel.h"

#include "core/library/HistoryStore.h"

namespace clipwren {

HistoryListModel::HistoryListModel(const HistoryStore &history, QObject *parent)
    : LibraryListModel(parent), m_history(history)
{
    connect(&history, &HistoryStore::changed, this, &HistoryListModel::take);
    take();
}

void HistoryListModel::take()
{
    QList<QUuid> ids;
    ids.reserve(m_history.entries().size());
    for (const HistoryEntry &entry : m_history.entries())
        ids << entry.id;
    setIds(ids);
}

const HistoryEntry *HistoryListModel::entry(const QModelIndex &index) const
{
    const auto item = itemAt(index);
    return item && *item < m_history.entries().size() ? &m_history.entries().at(*item) : nullptr;
}

QString HistoryListModel::dateText(const HistoryEntry &entry) const
{
    return m_dates.text(entry.lastDownloadedAt);
}

QString HistoryListModel::countText(const HistoryEntry &entry)
{
    return entry.downloadCount >= 2 ? QStringLiteral("· %1×").arg(entry.downloadCount) : QString();
}

QString HistoryListModel::title(qsizetype item) const
{
    return m_history.entries().at(item).title;
}

QString HistoryListModel::accessibleText(qsizetype item) const
{
    const HistoryEntry &entry = m_history.entries().at(item);
    QStringList parts{entry.title, dateText(entry)};
    if (entry.downloadCount >= 2)
        parts << tr("downloaded %1 times").arg(entry.downloadCount);
    return parts.join(QStringLiteral(", "));
}

} // namespace clipwren
