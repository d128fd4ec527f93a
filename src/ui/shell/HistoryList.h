#pragma once

#include "ui/shell/LibraryListModel.h"

#include <QWidget>

namespace clipwren {

class Desktop;
class LibraryListView;
class Menu;

/// All videos that were ever downloaded: a row for each, its menu, and the bar that clears the
/// list.
class HistoryList : public QWidget {
    Q_OBJECT

public:
    /// Both must outlive this.
    HistoryList(HistoryStore &history, Desktop &desktop, QWidget *parent = nullptr);

    void setFilter(const QString &text) { m_model.setFilter(text); }

    LibraryListView &view() const { return *m_view; }

Q_SIGNALS:
    void newDownloadRequested();
    void redownloadRequested(const QString &address);

private:
    void redownload(const QModelIndex &index);
    Menu *makeMenu(const HistoryEntry &shown);

    HistoryStore &m_history;
    Desktop &m_desktop;
    HistoryListModel m_model;
    LibraryListView *m_view;
};

} // namespace clipwren
