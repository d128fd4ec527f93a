#pragma once

#include "core/library/DownloadRecord.h"
#include "core/library/HistoryEntry.h"
#include "platform/text/RelativeDate.h"

#include <QAbstractListModel>
#include <QHash>
#include <QSet>

#include <optional>

namespace clipwren {

class DownloadStore;
class HistoryStore;

/// The rows of a list of the library. The first row stands for the list's header; items follow from
/// `firstItem` on, in the order of the store.
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

    qsizetype itemCount() const { return m_ids.size(); }
    /// The item's place in its list; none for the header.
    std::optional<qsizetype> itemAt(const QModelIndex &index) const;
    /// True while rows come and go: what a view then selects is not the user's choice.
    bool isChanging() const { return m_changing; }
    /// The first item of that id; invalid when there is none.
    QModelIndex indexOf(const QUuid &id) const;

Q_SIGNALS:
    /// After the rows have become what the store holds.
    void itemsChanged();

protected:
    /// Makes the rows those of the items, which have these ids.
    void setIds(const QList<QUuid> &ids);
    /// What rows show besides their title and place has changed.
    void updateRows();

    virtual QVariant valueOf(qsizetype item, int role) const = 0;

private:
    QList<QUuid> m_ids;
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
    QVariant valueOf(qsizetype item, int role) const override;

private:
    void followStore();
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
    QVariant valueOf(qsizetype item, int role) const override;

private:
    void followStore();
    QString accessibleText(const HistoryEntry &entry) const;

    const HistoryStore &m_history;
    RelativeDate m_dates;
};

} // namespace clipwren
