#include "ui/shell/RecentList.h"

#include "core/library/DownloadStore.h"
#include "platform/desktop/Desktop.h"
#include "ui/components/Button.h"
#include "ui/components/Menu.h"
#include "ui/components/PassFocus.h"
#include "ui/shell/LibraryListView.h"
#include "ui/shell/ListFooter.h"
#include "ui/shell/ListLead.h"
#include "ui/shell/RecentDelegate.h"
#include "ui/shell/RowSpinner.h"
#include "ui/shell/UndoLine.h"
#include "workflow/library/Reencoder.h"

#include <QFileInfo>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>

namespace clipwren {

RecentList::RecentList(DownloadStore &store, const ToolEnvironment &tools, Desktop &desktop,
                       QWidget *parent)
    : QWidget(parent), m_store(store), m_desktop(desktop), m_model(store),
      m_reencoder(new Reencoder(store, tools, this)), m_undoLine(new UndoLine),
      m_footer(new ListFooter(u"tray", tr("Clear Recents")))
{
    auto *lead = new ListLead(tr("Recent"), tr("No downloads yet"));
    m_view = new LibraryListView(m_model, lead, tr("Recent downloads"));
    m_spinner = new RowSpinner(
        *m_view,
        [this](const QModelIndex &index) {
            const DownloadRecord *record = m_model.record(index);
            return record && m_model.isReencoding(*record);
        },
        this);
    m_view->setItemDelegate(new RecentDelegate(
        m_model, [this] { return m_spinner->degrees(); }, this));

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_view, 1);
    column->addWidget(m_undoLine);
    column->addWidget(m_footer);

    connect(lead->newDownload(), &Button::clicked, this, &RecentList::newDownloadRequested);
    connect(m_view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &RecentList::takeSelection);
    connect(m_view, &LibraryListView::menuRequested, this, &RecentList::showMenu);
    connect(m_view, &LibraryListView::deletePressed, this, [this](const QModelIndex &index) {
        if (const DownloadRecord *record = m_model.record(index))
            remove(record->id);
    });
    connect(m_undoLine, &UndoLine::undone, this, &RecentList::undoRemoval);
    connect(m_undoLine, &UndoLine::expired, this, &RecentList::forgetRemovals);
    connect(m_view, &LibraryListView::returnPressed, m_view->selectionModel(),
            [this](const QModelIndex &index) {
                m_view->selectionModel()->select(index, QItemSelectionModel::ClearAndSelect);
            });
    connect(m_footer, &ListFooter::clearRequested, this, &RecentList::confirmClear);
    connect(m_reencoder, &Reencoder::reencodingChanged, this,
            [this] { m_model.setReencoding(m_reencoder->reencodingIDs()); });
    // After the model, which listens since before.
    connect(&m_store, &DownloadStore::changed, this, &RecentList::takeStore);
    takeStore();
}

QSet<QUuid> RecentList::reencodingIDs() const
{
    return m_reencoder->reencodingIDs();
}

void RecentList::takeStore()
{
    const qsizetype count = m_store.records().size();
    if (count == 0)
        passFocus(*m_footer, m_view->newDownload());
    m_footer->setCount(count);
    if (m_clearDialog)
        m_clearDialog->setMessage(clearMessage());
    showSelection();
}

void RecentList::setSelection(const std::optional<QUuid> &id)
{
    if (m_selection == id)
        return;
    m_selection = id;
    showSelection();
    const QModelIndex index = id ? m_model.indexOf(*id) : QModelIndex();
    if (index.row() == LibraryListModel::firstItem)
        m_view->scrollToTop();
    else if (index.isValid())
        m_view->scrollTo(index);
}

void RecentList::showSelection()
{
    const QModelIndex index = m_selection ? m_model.indexOf(*m_selection) : QModelIndex();
    m_showingSelection = true;
    if (index.isValid())
        m_view->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    else
        m_view->selectionModel()->clearSelection();
    m_showingSelection = false;
}

void RecentList::takeSelection()
{
    const QModelIndexList rows = m_view->selectionModel()->selectedIndexes();
    if (m_showingSelection || m_model.isChanging() || rows.isEmpty())
        return;
    const DownloadRecord *record = m_model.record(rows.constFirst());
    if (!record || record->id == m_selection)
        return;
    m_selection = record->id;
    askForFiles();
    Q_EMIT selected(QUuid(record->id));
}

/// What is shown of the record or offered in its menu goes by the disk, so its row does, too.
void RecentList::askForFiles()
{
    m_model.forgetFiles();
    m_view->viewport()->update();
}

void RecentList::showMenu(const QModelIndex &index, const QPoint &place)
{
    const DownloadRecord *record = m_model.record(index);
    if (!record)
        return;
    Menu *menu = makeMenu(*record);
    m_view->setMenuRow(index);
    askForFiles();
    connect(menu, &Menu::aboutToHide, m_view, [this] { m_view->setMenuRow({}); });
    menu->popup(place);
}

Menu *RecentList::makeMenu(const DownloadRecord &shown)
{
    // The record as it was when the menu was opened: the list may change below it.
    const DownloadRecord record = shown;
    const bool exists = QFileInfo::exists(record.filePath);
    auto *menu = new Menu(this);
    const auto add = [this, menu](const QString &text, bool enabled, auto action) {
        QAction *item = menu->addAction(text);
        item->setEnabled(enabled);
        connect(item, &QAction::triggered, this, action);
    };
    add(tr("Reveal in Finder"), exists, [this, record] { m_desktop.reveal(record.filePath); });
    add(tr("Re-download this URL"), true,
        [this, record] { Q_EMIT redownloadRequested(record.sourceURL); });
    add(tr("Make QuickTime-compatible (re-encode)"), exists,
        [this, record] { m_reencoder->convertToH264(record); });
    add(tr("Copy Source URL"), true,
        [this, record] { m_desktop.setClipboardText(record.sourceURL); });
    menu->addSeparator();
    connect(menu->addDestructiveAction(tr("Remove from List")), &QAction::triggered, this,
            [this, id = record.id] { remove(id); });
    return menu;
}

void RecentList::remove(const QUuid &id)
{
    const QList<DownloadRecord> &records = m_store.records();
    const auto place = std::ranges::find(records, id, &DownloadRecord::id);
    if (place == records.end())
        return;
    const auto next = std::next(place);
    m_removed.append({*place, next == records.end() ? QUuid() : next->id});
    m_undoLine->offer(place->title);
    m_store.remove(m_removed.last().record);
}

void RecentList::undoRemoval()
{
    const Removed last = m_removed.takeLast();
    m_store.restore(last.record, last.next);
    if (m_removed.isEmpty())
        forgetRemovals();
    else
        m_undoLine->offer(m_removed.last().record.title);
}

void RecentList::forgetRemovals()
{
    m_removed.clear();
    passFocus(*m_undoLine, *m_view);
    m_undoLine->hide();
}

void RecentList::confirmClear()
{
    m_clearDialog = new ConfirmationDialog(tr("Clear Recents?"), tr("Clear Recents"), this);
    m_clearDialog->setMessage(clearMessage());
    connect(m_clearDialog, &ConfirmationDialog::accepted, this, &RecentList::clear);
    m_clearDialog->open();
}

void RecentList::clear()
{
    forgetRemovals();
    m_store.clear();
}

QString RecentList::clearMessage() const
{
    const qsizetype count = m_store.records().size();
    return tr("Removes %1 item%2 from this list. Downloaded files are not deleted, and History "
              "is preserved.")
        .arg(count)
        .arg(count == 1 ? QString() : QStringLiteral("s"));
}

} // namespace clipwren
