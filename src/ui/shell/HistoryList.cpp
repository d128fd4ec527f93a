#include "ui/shell/HistoryList.h"

#include "core/library/HistoryStore.h"
#include "platform/desktop/Desktop.h"
#include "ui/components/Button.h"
#include "ui/components/Menu.h"
#include "ui/components/PassFocus.h"
#include "ui/shell/HistoryDelegate.h"
#include "ui/shell/LibraryListView.h"
#include "ui/shell/ListFooter.h"
#include "ui/shell/ListLead.h"

#include <QVBoxLayout>

namespace clipwren {

HistoryList::HistoryList(HistoryStore &history, Desktop &desktop, QWidget *parent)
    : QWidget(parent), m_history(history), m_desktop(desktop), m_model(history),
      m_footer(new ListFooter(u"trash", tr("Clear History")))
{
    auto *lead = new ListLead(tr("All-time"), tr("Nothing downloaded yet"));
    m_view = new LibraryListView(m_model, lead, tr("History"));
    m_view->setSelectionMode(QAbstractItemView::NoSelection);
    auto *delegate = new HistoryDelegate(m_model, this);
    m_view->setItemDelegate(delegate);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_view, 1);
    column->addWidget(m_footer);

    connect(lead->newDownload(), &Button::clicked, this, &HistoryList::newDownloadRequested);
    connect(delegate, &HistoryDelegate::redownloadClicked, this, &HistoryList::redownload);
    connect(m_view, &LibraryListView::returnPressed, this, &HistoryList::redownload);
    connect(m_view, &LibraryListView::menuRequested, this, &HistoryList::showMenu);
    connect(m_footer, &ListFooter::clearRequested, &m_history, &HistoryStore::clear);
    const auto takeCount = [this] {
        const qsizetype count = m_history.entries().size();
        if (count == 0)
            passFocus(*m_footer, m_view->newDownload());
        m_footer->setCount(count);
    };
    connect(&m_history, &HistoryStore::changed, this, takeCount);
    takeCount();
}

void HistoryList::redownload(const QModelIndex &index)
{
    if (const HistoryEntry *entry = m_model.entry(index))
        Q_EMIT redownloadRequested(QString(entry->url));
}

void HistoryList::showMenu(const QModelIndex &index, const QPoint &place)
{
    const HistoryEntry *entry = m_model.entry(index);
    if (!entry)
        return;
    Menu *menu = makeMenu(*entry);
    m_view->setMenuRow(index);
    connect(menu, &Menu::aboutToHide, m_view, [this] { m_view->setMenuRow({}); });
    menu->popup(place);
}

Menu *HistoryList::makeMenu(const HistoryEntry &shown)
{
    // The entry as it was when the menu was opened: the list may change below it.
    const HistoryEntry entry = shown;
    auto *menu = new Menu(this);
    connect(menu->addAction(tr("Re-download")), &QAction::triggered, this,
            [this, entry] { Q_EMIT redownloadRequested(entry.url); });
    connect(menu->addAction(tr("Copy URL")), &QAction::triggered, this,
            [this, entry] { m_desktop.setClipboardText(entry.url); });
    connect(menu->addAction(tr("Open URL in Browser")), &QAction::triggered, this, [this, entry] {
        const QUrl address(entry.url, QUrl::StrictMode);
        if (address.isValid())
            m_desktop.openAddress(address);
    });
    menu->addSeparator();
    connect(menu->addDestructiveAction(tr("Remove from History")), &QAction::triggered, this,
            [this, entry] { m_history.remove(entry); });
    return menu;
}

} // namespace clipwren
