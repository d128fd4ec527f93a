#pragma once

#include "core/library/DownloadRecord.h"
#include "platform/text/RelativeDate.h"
#include "ui/shell/FilePresence.h"
#include "ui/shell/LibraryListModel.h"

#include <QSet>

namespace clipwren {

class DownloadStore;

/// The saved files as rows.
class RecentListModel : public LibraryListModel {
    Q_OBJECT

public:
    /// The store must outlive this.
    explicit RecentListModel(const DownloadStore &store, QObject *parent = nullptr);

    /// Null for the first row. Good until the store changes.
    const DownloadRecord *record(const QModelIndex &index) const;
    bool fileExists(const DownloadRecord &record) const
    {
        return m_presence.exists(record.filePath);
    }
    QString dateText(const DownloadRecord &record) const;
    bool isReencoding(const DownloadRecord &record) const
    {
        return m_reencoding.contains(record.id);
    }

    void setReencoding(const QSet<QUuid> &ids);
    /// Asks the disk and the clock again when rows are drawn next.
    void refresh();
    /// Asks the disk again about the files of rows that are drawn from now on.
    void forgetFiles() { m_presence.forget(); }

protected:
    QString title(qsizetype item) const override;
    QString accessibleText(qsizetype item) const override;

private:
    void take();

    const DownloadStore &m_store;
    FilePresence m_presence;
    RelativeDate m_dates;
    QSet<QUuid> m_reencoding;
};

} // namespace clipwren
