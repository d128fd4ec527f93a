#pragma once

#include <QSet>
#include <QUuid>
#include <QWidget>

#include <cstdint>
#include <optional>

class QVBoxLayout;

namespace clipwren {

class Banner;
class Desktop;
class DownloadStore;
class FieldBox;
class HistoryList;
class HistoryStore;
class LibraryListView;
class RecentList;
class SegmentedControl;
class Selection;
class ToolEnvironment;

/// The left column of the window: the saved files and the history, one at a time, and what could
/// not be saved of them.
///
/// Shows what is selected, and asks for what the user wants selected.
class SidebarView : public QWidget {
    Q_OBJECT

public:
    enum class Tab : std::uint8_t { recent, history };

    /// All but the folder must outlive the view.
    SidebarView(DownloadStore &store, HistoryStore &history, const ToolEnvironment &tools,
                Desktop &desktop, const Selection &selection, const QString &downloadDirectory,
                QWidget *parent = nullptr);

    QSize minimumSizeHint() const override;

    Tab tab() const { return m_tab; }
    void setTab(Tab tab);

    /// Shows the field that filters the lists by title, and puts the keyboard into it.
    void startFiltering();

    /// Ids of the records whose re-encode runs.
    QSet<QUuid> reencodingIDs() const;
    /// Asks the disk for the files of the rows again. Happens by itself when the window becomes
    /// active.
    void refreshFiles();

    RecentList &recentList() const { return *m_recentList; }
    HistoryList &historyList() const { return *m_historyList; }

Q_SIGNALS:
    /// The user chose a record, or none, other than the selected one.
    void selectionRequested(const std::optional<QUuid> &id);
    /// The user wants an address looked up again.
    void redownloadRequested(const QString &address);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QLayout *makeHeader(Desktop &desktop, const QString &downloadDirectory);
    LibraryListView &shownList() const;
    QWidget *makeUnsavedBar();
    void makeFilter();
    void filter(const QString &text);
    void endFiltering();
    void requestNoSelection();
    void saveAgain();
    void renderSaveError();

    DownloadStore &m_store;
    HistoryStore &m_history;
    const Selection &m_selection;
    Tab m_tab = Tab::recent;
    SegmentedControl *m_tabs;
    QVBoxLayout *m_filterPlace;
    FieldBox *m_filter = nullptr; // made when it is first asked for
    QWidget *m_filterRow = nullptr; // around it; hidden while nothing is filtered
    RecentList *m_recentList;
    HistoryList *m_historyList;
    QWidget *m_unsavedBar; // hidden while all is saved
    Banner *m_unsaved;
};

} // namespace clipwren
