#pragma once

#include "core/library/DownloadRecord.h"
#include "core/library/HistoryEntry.h"
#include "platform/text/RelativeDate.h"

#include <QAbstractListModel>
#include <QHash>
#include <QSet>
#include <QUrl>

#include <optional>

namespace clipwren {

class DownloadStore;
class HistoryStore;

/// The rows of a list of the library. The first row stands for the list's header; items follow from
/// `firstItem` on, in the order of the store, those alone whose titles match the filter.
///
/// A change of the store moves only the rows that it concerns, so that a view keeps its place.
class LibraryListModel : public QAbstractListModel {
    Q_OBJECT

public:
    static constexpr int firstItem = 1;

    /// What a row shows beside its title, which is the display role.
    enum Role {
        DetailRole = Qt::UserRole, ///< the line below the title
        DetailTailRole, ///< stays whole when the detail is elided
        IconRole, ///< an `Icon`
        SpinnerRole, ///< true for a spinner in the icon's place
        MissingRole, ///< true for what is drawn faintly, as its file has gone
    };

    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    /// What other programs get when a row is dragged there: the address of what it stands for.
    QMimeData *mimeData(const QModelIndexList &indexes) const override;
    QStringList mimeTypes() const override;
    Qt::DropActions supportedDragActions() const override { return Qt::CopyAction; }

    /// Leaves only the items whose titles contain the text, in whatever case; all of them when it
    /// is empty.
    void setFilter(const QString &text);
    bool isFiltered() const { return !m_filter.isEmpty(); }

    /// Of those that match the filter.
    qsizetype itemCount() const { return m_ids.size(); }
    /// The item's place in its store; none for the header.
    std::optional<qsizetype> itemAt(const QModelIndex &index) const;
    /// True while rows come and go: what a view then selects is not the user's choice.
    bool isChanging() const { return m_changing; }
    /// The first item of that id; invalid when there is none.
    QModelIndex indexOf(const QUuid &id) const;

Q_SIGNALS:
    /// After the rows have become what the store holds.
    void itemsChanged();

protected:
    /// Makes the rows those of the store's items that match the filter.
    template <typename Item> void setItems(const QList<Item> &items)
    {
        QList<QUuid> ids;
        QList<qsizetype> places;
        for (qsizetype place = 0; place < items.size(); ++place) {
            const Item &item = items.at(place);
            if (m_filter.isEmpty() || item.title.contains(m_filter, Qt::CaseInsensitive)) {
                ids << item.id;
                places << place;
            }
        }
        setIds(ids, places);
    }
    virtual void followStore() = 0;
    /// What rows show besides their title and place has changed.
    void updateRows();

    virtual QVariant valueOf(qsizetype item, int role) const = 0;
    /// Of the file or page that the item stands for; empty where there is none any more.
    virtual QUrl urlOf(qsizetype item) const = 0;

private:
    void setIds(const QList<QUuid> &ids, const QList<qsizetype> &places);

    QString m_filter;
    QList<QUuid> m_ids;
    QList<qsizetype> m_places; ///< in the store
    bool m_changing = false;
};

/// Whether files exist, asked of the disk once per path until told to forget. Lists ask for the
/// rows that they draw and no others.
class FileExistsCache {
public:
    bool exists(const QString &path) const;
    void forget() { m_known.clear(); }

private:
    mutable QHash<QString, bool> m_known;
};

/// The saved files as rows.
class RecentListModel : public LibraryListModel {
    Q_OBJECT

public:
    /// The store must outlive this.
    explicit RecentListModel(const DownloadStore &store, QObject *parent = nullptr);

    /// Null for the header. Good until the store changes.
    const DownloadRecord *record(const QModelIndex &index) const;
    void setReencoding(const QSet<QUuid> &ids);
    /// Asks the disk and the clock again when rows are drawn next.
    void refresh();
    /// Asks the disk again about the files of rows that are drawn from now on.
    void forgetFiles() { m_files.forget(); }

protected:
    void followStore() override;
    QVariant valueOf(qsizetype item, int role) const override;
    QUrl urlOf(qsizetype item) const override;

private:
    QString accessibleText(const DownloadRecord &record) const;

    const DownloadStore &m_store;
    FileExistsCache m_files;
    RelativeDate m_dates;
    QSet<QUuid> m_reencoding;
};

/// The downloaded videos as rows.
class HistoryListModel : public LibraryListModel {
    Q_OBJECT

public:
    /// The store must outlive this.
    explicit HistoryListModel(const HistoryStore &history, QObject *parent = nullptr);

    /// Null for the header. Good until the store changes.
    const HistoryEntry *entry(const QModelIndex &index) const;

protected:
    void followStore() override;
    QVariant valueOf(qsizetype item, int role) const override;
    QUrl urlOf(qsizetype item) const override;

private:
    QString accessibleText(const HistoryEntry &entry) const;

    const HistoryStore &m_history;
    RelativeDate m_dates;
};

} // namespace clipwren
