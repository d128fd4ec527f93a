#include "ui/shell/HistoryList.h"

#include "core/library/HistoryStore.h"
#include "platform/desktop/Desktop.h"
#include "ui/components/Menu.h"
#include "ui/shell/LibraryDelegate.h"
#include "ui/shell/LibraryListView.h"

#include <QVBoxLayout>

namespace clipwren {

HistoryList::HistoryList(HistoryStore &history, Desktop &desktop, QWidget *parent)
    : QWidget(parent), m_history(history), m_desktop(desktop), m_model(history)
{
    m_view = new LibraryListView(
        m_model,
        {.title = tr("All-time"),
         .emptyText = tr("Nothing downloaded yet"),
         .accessibleName = tr("History"),
         .selectable = false,
         .makeMenu = [this](const QModelIndex &index) { return makeMenu(*m_model.entry(index)); }});
    auto *delegate = new LibraryDelegate(*m_view);
    delegate->setRowButton(u"arrow.down.circle", tr("Re-download"));

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_view, 1);
    // Made last, so that Tab leads to it last.
    auto *footer = new ListFooter(m_model, *m_view, u"trash", tr("Clear History"), this);
    column->addWidget(footer);

    connect(m_view, &LibraryListView::newDownloadRequested, this,
            &HistoryList::newDownloadRequested);
    connect(delegate, &LibraryDelegate::rowButtonClicked, this, &HistoryList::redownload);
    connect(m_view, &LibraryListView::returnPressed, this, &HistoryList::redownload);
    connect(footer, &ListFooter::clearRequested, &m_history, &HistoryStore::clear);
}

void HistoryList::redownload(const QModelIndex &index)
{
    if (const HistoryEntry *entry = m_model.entry(index))
        Q_EMIT redownloadRequested(QString(entry->url));
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
