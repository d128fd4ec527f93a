#include "ui/shell/RecentListModel.h"

#include "core/library/DownloadStore.h"

namespace clipwren {

RecentListModel::RecentListModel(const DownloadStore &store, QObject *parent)
    : LibraryListModel(parent), m_store(store)
{
    connect(&store, &DownloadStore::changed, this, &RecentListModel::take);
    take();
}

void RecentListModel::take()
{
    // A download may have brought a missing file back.
    m_presence.forget();
    QList<QUuid> ids;
    ids.reserve(m_store.records().size());
    for (const DownloadRecord &record : m_store.records())
        ids << record.id;
    setIds(ids);
}

const DownloadRecord *RecentListModel::record(const QModelIndex &index) const
{
    const auto item = itemAt(index);
    return item && *item < m_store.records().size() ? &m_store.records().at(*item) : nullptr;
}

QString RecentListModel::dateText(const DownloadRecord &record) const
{
    return m_dates.text(record.createdAt);
}

void RecentListModel::setReencoding(const QSet<QUuid> &ids)
{
    m_reencoding = ids;
    refresh();
}

void RecentListModel::refresh()
{
    m_presence.forget();
    if (itemCount() > 0)
        Q_EMIT dataChanged(index(firstItem), index(rowCount() - 1));
}

QString RecentListModel::title(qsizetype item) const
{
    return m_store.records().at(item).title;
}

QString RecentListModel::accessibleText(qsizetype item) const
{
    const DownloadRecord &record = m_store.records().at(item);
    QStringList parts{record.title, dateText(record)};
    if (!fileExists(record))
        parts << tr("file missing");
    if (isReencoding(record))
        parts << tr("re-encoding");
    return parts.join(QStringLiteral(", "));
}

} // namespace clipwren
