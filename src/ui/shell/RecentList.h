#pragma once

#include "ui/components/ConfirmationDialog.h"
#include "ui/shell/LibraryListModel.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <chrono>

namespace clipwren {

class Button;
class Desktop;
class Label;
class LibraryListView;
class Menu;
class Reencoder;
class Selection;
class ToolEnvironment;

/// A line that says what was removed, with a button that brings it back: for some seconds, and as
/// long as the button has the keyboard focus. Ctrl+Z does the same.
class UndoLine : public QWidget {
    Q_OBJECT

public:
    explicit UndoLine(std::chrono::milliseconds duration = std::chrono::seconds(8),
                      QWidget *parent = nullptr);

    /// Shows the line, for its whole time.
    void offer(const QString &title);

Q_SIGNALS:
    void undone();
    void expired();

private:
    void expire();

    Label *m_text;
    Button *m_undo;
    QTimer m_timer;
};

/// The saved files: a row for each, its menu, and the bar that clears the list. Highlights the
/// selected record.
class RecentList : public QWidget {
    Q_OBJECT

public:
    /// All must outlive this.
    RecentList(DownloadStore &store, const ToolEnvironment &tools, Desktop &desktop,
               const Selection &selection, QWidget *parent = nullptr);

    QSet<QUuid> reencodingIDs() const;
    /// Asks the disk and the clock again.
    void refresh() { m_model.refresh(); }

    void setFilter(const QString &text) { m_model.setFilter(text); }

    LibraryListView &view() const { return *m_view; }

Q_SIGNALS:
    /// The user chose a record. Unless the selection follows, it stays what it was.
    void selectionRequested(const QUuid &id);
    void newDownloadRequested();
    void redownloadRequested(const QString &address);

private:
    void requestSelection();
    void highlightSelection();
    void scrollToSelection();
    void forgetFiles();
    Menu *makeMenu(const DownloadRecord &shown);
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
    const Selection &m_selection;
    RecentListModel m_model;
    Reencoder *m_reencoder;
    LibraryListView *m_view;
    UndoLine *m_undoLine;
    QPointer<ConfirmationDialog> m_clearDialog; // there while it is shown
    QList<Removed> m_removed; // while they can be brought back, the latest last
};

} // namespace clipwren
