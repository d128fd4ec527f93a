#pragma once

#include "platform/text/RelativeDate.h"
#include "ui/shell/HistoryList.h"
#include "ui/shell/LibraryListView.h"
#include "ui/shell/RecentList.h"
#include "ui/shell/Selection.h"
#include "ui/shell/ShellFixture.h"
#include "ui/shell/SidebarView.h"

#include <QSignalSpy>

namespace clipwren::test {

using namespace Qt::StringLiterals;

/// The sidebar, with a note of its requests, which are granted. Items of the shown list count from
/// 0.
class SidebarFixture : public ShellFixture {
protected:
    explicit SidebarFixture(SidebarView::Tab tab)
    {
        sidebar.setTab(tab);
        sidebar.resize(280, 600);
        QObject::connect(&sidebar, &SidebarView::selectionRequested,
                         [this](const std::optional<QUuid> &id) {
                             selections << id;
                             if (grantsSelection)
                                 selection.select(id);
                         });
        QObject::connect(&sidebar, &SidebarView::redownloadRequested,
                         [this](const QString &address) { addresses << address; });
    }

    LibraryListView &list()
    {
        return sidebar.tab() == SidebarView::Tab::recent ? sidebar.recentList().view()
                                                         : sidebar.historyList().view();
    }
    QModelIndex row(int item) { return list().model()->index(item + 1, 0); }
    QRect place(int item) { return list().visualRect(row(item)); }
    void openMenuOf(int item) { openRowMenu(list(), item + 1); }
    void choose(int item, const QString &text)
    {
        openMenuOf(item);
        chooseFromMenu(text);
    }

    /// How a row tells the time of a record that is new.
    const QString now = RelativeDate().text(QDateTime::currentDateTimeUtc());
    QList<std::optional<QUuid>> selections;
    QStringList addresses;
    bool grantsSelection = true;
    Selection selection;
    SidebarView sidebar{store, history, environment, desktop, selection, path(u"Videos"_s)};
};

} // namespace clipwren::test
