#pragma once

#include "core/library/HistoryEntry.h"
#include "platform/text/RelativeDate.h"
#include "ui/shell/LibraryListModel.h"

namespace clipwren {

class HistoryStore;

/// The downloaded videos as rows.
class HistoryListModel : public LibraryListModel {
    Q_OBJECT

public:
    /// The store must outlive this.
    explicit HistoryListModel(const HistoryStore &history, QObject *parent = nullptr);

    /// Null for the first row. Good until the store changes.
    const HistoryEntry *entry(const QModelIndex &index) const;
    QString dateText(const HistoryEntry &entry) const;
    /// As in "· 3×"; empty for a video that was downloaded once.
    static QString countText(const HistoryEntry &entry);

protected:
    QString title(qsizetype item) const override;
    QString accessibleText(qsizetype item) const override;

private:
    void take();

    const HistoryStore &m_history;
    RelativeDate m_dates;
};

} // namespace clipwren
