#pragma once

#include "ui/components/ConfirmationDialog.h"
#include "ui/shell/RecentListModel.h"

#include <QPointer>
#include <QWidget>

namespace clipwren {

class Desktop;
class LibraryListView;
class ListFooter;
class Menu;
class Reencoder;
class RowSpinner;
class ToolEnvironment;
class UndoLine;

/// The saved files: a row for each, its menu, and the bar that clears the list.
class RecentList : public QWidget {
    Q_OBJECT

public:
    /// All must outlive this.
    RecentList(DownloadStore &store, const ToolEnvironment &tools, Desktop &desktop,
               QWidget *parent = nullptr);

    /// Highlights the record of that id, if there is one, without `selected()`.
    void setSelection(const std::optional<QUuid> &id);
    QSet<QUuid> reencodingIDs() const;
    /// Asks the disk and the clock again.
    void refresh() { m_model.refresh(); }

    LibraryListView &view() const { return *m_view; }

Q_SIGNALS:
    /// The user chose a record.
    void selected(const QUuid &id);
    void newDownloadRequested();
    void redownloadRequested(const QString &address);

private:
    void takeStore();
    void takeSelection();
    void showSelection();
    void askForFiles();
    void showMenu(const QModelIndex &index, const QPoint &place);
    Menu *makeMenu(const DownloadRecord &record);
    void remove(const QUuid &id);
    void undoRemoval();
    void forgetRemovals();
    void confirmClear();
    void clear();
    QString clearMessage() const;

    struct Removed {
        DownloadRecord record;
        QUuid next; ///< of the record below it; null at the end
    };

    DownloadStore &m_store;
    Desktop &m_desktop;
    RecentListModel m_model;
    Reencoder *m_reencoder;
    LibraryListView *m_view;
    RowSpinner *m_spinner;
    UndoLine *m_undoLine;
    ListFooter *m_footer;
    QPointer<ConfirmationDialog> m_clearDialog; // there while it is shown
    QList<Removed> m_removed; // while they can be brought back, the latest last
    std::optional<QUuid> m_selection;
    bool m_showingSelection = false;
};

} // namespace clipwren
