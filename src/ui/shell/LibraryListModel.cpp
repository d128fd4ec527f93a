#include "ui/shell/LibraryListModel.h"

#include "core/library/DownloadStore.h"
#include "core/library/HistoryStore.h"
#include "ui/components/Icon.h"

#include <QFileInfo>
#include <QMimeData>

#include <algorithm>

namespace clipwren {

using namespace Qt::StringLiterals;

int LibraryListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_ids.size()) + firstItem;
}

std::optional<qsizetype> LibraryListModel::itemAt(const QModelIndex &index) const
{
    const qsizetype item = index.row() - firstItem;
    return index.isValid() && item >= 0 && item < m_places.size() ? std::optional(m_places.at(item))
                                                                  : std::nullopt;
}

QModelIndex LibraryListModel::indexOf(const QUuid &id) const
{
    const qsizetype item = m_ids.indexOf(id);
    return item < 0 ? QModelIndex() : index(static_cast<int>(item) + firstItem);
}

QVariant LibraryListModel::data(const QModelIndex &index, int role) const
{
    const auto item = itemAt(index);
    // While rows come and go, the store and the rows do not match.
    return item && !m_changing ? valueOf(*item, role) : QVariant();
}

Qt::ItemFlags LibraryListModel::flags(const QModelIndex &index) const
{
    return itemAt(index) ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren
            | Qt::ItemIsDragEnabled
                         : Qt::NoItemFlags;
}

QStringList LibraryListModel::mimeTypes() const
{
    return {u"text/uri-list"_s};
}

QMimeData *LibraryListModel::mimeData(const QModelIndexList &indexes) const
{
    QList<QUrl> urls;
    for (const QModelIndex &index : indexes) {
        const auto item = itemAt(index);
        if (const QUrl url = item ? urlOf(*item) : QUrl(); !url.isEmpty())
            urls << url;
    }
    if (urls.isEmpty())
        return nullptr;
    auto *data = new QMimeData;
    data->setUrls(urls);
    return data;
}

void LibraryListModel::setFilter(const QString &text)
{
    if (text == m_filter)
        return;
    m_filter = text;
    followStore();
}

void LibraryListModel::setIds(const QList<QUuid> &ids, const QList<qsizetype> &places)
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
        m_places = places;
        endRemoveRows();
    } else if (inserted > replaced) {
        beginInsertRows({}, first + replaced, first + inserted - 1);
        m_ids = ids;
        m_places = places;
        endInsertRows();
    }
    m_ids = ids;
    m_places = places;
    m_changing = false;
    updateRows();
    Q_EMIT itemsChanged();
}

void LibraryListModel::updateRows()
{
    if (!m_ids.isEmpty())
        Q_EMIT dataChanged(index(firstItem), index(rowCount() - 1));
}

bool FileExistsCache::exists(const QString &path) const
{
    auto known = m_known.constFind(path);
    if (known == m_known.constEnd())
        known = m_known.insert(path, QFileInfo::exists(path));
    return *known;
}

RecentListModel::RecentListModel(const DownloadStore &store, QObject *parent)
    : LibraryListModel(parent), m_store(store)
{
    connect(&store, &DownloadStore::changed, this, &RecentListModel::followStore);
    RecentListModel::followStore();
}

void RecentListModel::followStore()
{
    // A download may have brought a missing file back.
    m_files.forget();
    setItems(m_store.records());
}

const DownloadRecord *RecentListModel::record(const QModelIndex &index) const
{
    const auto item = itemAt(index);
    return item && *item < m_store.records().size() ? &m_store.records().at(*item) : nullptr;
}

void RecentListModel::setReencoding(const QSet<QUuid> &ids)
{
    m_reencoding = ids;
    refresh();
}

void RecentListModel::refresh()
{
    m_files.forget();
    updateRows();
}

QVariant RecentListModel::valueOf(qsizetype item, int role) const
{
    const DownloadRecord &record = m_store.records().at(item);
    switch (role) {
    case Qt::DisplayRole:
        return record.title;
    case Qt::AccessibleTextRole:
        return accessibleText(record);
    case DetailRole:
        return m_dates.text(record.createdAt);
    case IconRole:
        return QVariant::fromValue(m_files.exists(record.filePath) ? Icon(u"play.rectangle.fill")
                                                                   : Icon(u"questionmark.video"));
    case SpinnerRole:
        return m_reencoding.contains(record.id);
    case MissingRole:
        return !m_files.exists(record.filePath);
    default:
        return {};
    }
}

QUrl RecentListModel::urlOf(qsizetype item) const
{
    const DownloadRecord &record = m_store.records().at(item);
    return m_files.exists(record.filePath) ? QUrl::fromLocalFile(record.filePath) : QUrl();
}

QString RecentListModel::accessibleText(const DownloadRecord &record) const
{
    QStringList parts{record.title, m_dates.text(record.createdAt)};
    if (!m_files.exists(record.filePath))
        parts << tr("file missing");
    if (m_reencoding.contains(record.id))
        parts << tr("re-encoding");
    return parts.join(u", "_s);
}

HistoryListModel::HistoryListModel(const HistoryStore &history, QObject *parent)
    : LibraryListModel(parent), m_history(history)
{
    connect(&history, &HistoryStore::changed, this, &HistoryListModel::followStore);
    HistoryListModel::followStore();
}

void HistoryListModel::followStore()
{
    setItems(m_history.entries());
}

const HistoryEntry *HistoryListModel::entry(const QModelIndex &index) const
{
    const auto item = itemAt(index);
    return item && *item < m_history.entries().size() ? &m_history.entries().at(*item) : nullptr;
}

QVariant HistoryListModel::valueOf(qsizetype item, int role) const
{
    const HistoryEntry &entry = m_history.entries().at(item);
    switch (role) {
    case Qt::DisplayRole:
        return entry.title;
    case Qt::AccessibleTextRole:
        return accessibleText(entry);
    case DetailRole:
        return m_dates.text(entry.lastDownloadedAt);
    case DetailTailRole:
        return entry.downloadCount >= 2 ? u"· %1×"_s.arg(entry.downloadCount) : QString();
    case IconRole:
        return QVariant::fromValue(Icon(u"clock.arrow.circlepath"));
    default:
        return {};
    }
}

QUrl HistoryListModel::urlOf(qsizetype item) const
{
    return QUrl(m_history.entries().at(item).url, QUrl::StrictMode);
}

QString HistoryListModel::accessibleText(const HistoryEntry &entry) const
{
    QStringList parts{entry.title, m_dates.text(entry.lastDownloadedAt)};
    if (entry.downloadCount >= 2)
        parts << tr("downloaded %n times", nullptr, static_cast<int>(entry.downloadCount));
    return parts.join(u", "_s);
}

} // namespace clipwren
