#pragma once

#include <QSet>
#include <QUuid>
#include <QWidget>

#include <cstdint>
#include <optional>

namespace clipwren {

class Desktop;
class DownloadStore;
class HistoryList;
class HistoryStore;
class LibraryListView;
class RecentList;
class SegmentedControl;
class ToolEnvironment;
class UnsavedBanner;

/// The left column of the window: the saved files and the history, one at a time.
///
/// What is selected and which list shows is the window's to decide; this view shows both and
/// tells what the user wants. The signals come for what the user does, not for the setters.
class SidebarView : public QWidget {
    Q_OBJECT

public:
    enum class Tab : std::uint8_t { recent, history };

    /// All must outlive the view.
    SidebarView(DownloadStore &store, HistoryStore &history, const ToolEnvironment &tools,
                Desktop &desktop, QWidget *parent = nullptr);

    std::optional<QUuid> selection() const { return m_selection; }
    /// Shows the record of that id as selected, whether there is one or not.
    void setSelection(const std::optional<QUuid> &id);

    Tab tab() const { return m_tab; }
    void setTab(Tab tab);

    /// Ids of the records whose re-encode runs.
    QSet<QUuid> reencodingIDs() const;
    /// Asks the disk for the files of the rows again. Happens by itself when the window becomes
    /// active.
    void refreshFiles();

    RecentList &recentList() const { return *m_recentList; }
    HistoryList &historyList() const { return *m_historyList; }

Q_SIGNALS:
    void selectionChanged(const std::optional<QUuid> &id);
    void tabChanged(clipwren::SidebarView::Tab tab);
    /// The user wants an address looked up again.
    void redownloadRequested(const QString &address);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QLayout *makeHeader(Desktop &desktop);
    LibraryListView &shownList() const;
    void select(const std::optional<QUuid> &id);
    void choose(Tab tab);

    std::optional<QUuid> m_selection;
    Tab m_tab = Tab::recent;
    SegmentedControl *m_tabs;
    RecentList *m_recentList;
    HistoryList *m_historyList;
    UnsavedBanner *m_unsaved;
};

} // namespace clipwren
