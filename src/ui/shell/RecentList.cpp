#include "ui/shell/RecentList.h"

#include "core/library/DownloadStore.h"
#include "platform/desktop/Desktop.h"
#include "ui/components/Button.h"
#include "ui/components/Card.h"
#include "ui/components/FocusRing.h"
#include "ui/components/Label.h"
#include "ui/components/Menu.h"
#include "ui/shell/LibraryDelegate.h"
#include "ui/shell/LibraryListView.h"
#include "ui/shell/Selection.h"
#include "workflow/library/Reencoder.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QItemSelectionModel>
#include <QShortcut>

#include <algorithm>
#include <iterator>

namespace clipwren {

using namespace Qt::StringLiterals;

RecentList::RecentList(DownloadStore &store, const ToolEnvironment &tools, Desktop &desktop,
                       const Selection &selection, QWidget *parent)
    : QWidget(parent), m_store(store), m_desktop(desktop), m_selection(selection), m_model(store),
      m_reencoder(new Reencoder(store, tools, desktop, this)), m_undoLine(new UndoLine)
{
    m_view = new LibraryListView(m_model,
                                 {.title = tr("Recent"),
                                  .emptyText = tr("No downloads yet"),
                                  .accessibleName = tr("Recent downloads"),
                                  .makeMenu = [this](const QModelIndex &index) {
                                      return makeMenu(*m_model.record(index));
                                  }});
    new LibraryDelegate(*m_view);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_view, 1);
    column->addWidget(m_undoLine);
    // Made last, so that Tab leads to it last.
    auto *footer = new ListFooter(m_model, *m_view, u"tray", tr("Clear Recents"), this);
    column->addWidget(footer);

    QItemSelectionModel *highlighted = m_view->selectionModel();
    connect(m_view, &LibraryListView::newDownloadRequested, this,
            &RecentList::newDownloadRequested);
    connect(highlighted, &QItemSelectionModel::selectionChanged, this,
            &RecentList::requestSelection);
    connect(m_view, &LibraryListView::returnPressed, highlighted,
            [highlighted](const QModelIndex &index) {
                highlighted->select(index, QItemSelectionModel::ClearAndSelect);
            });
    connect(m_view, &LibraryListView::deletePressed, this, [this](const QModelIndex &index) {
        if (const DownloadRecord *record = m_model.record(index))
            remove(record->id);
    });
    connect(m_undoLine, &UndoLine::undone, this, &RecentList::undoRemoval);
    connect(m_undoLine, &UndoLine::expired, this, &RecentList::forgetRemovals);
    connect(footer, &ListFooter::clearRequested, this, &RecentList::confirmClear);
    connect(m_reencoder, &Reencoder::reencodingChanged, this,
            [this] { m_model.setReencoding(m_reencoder->reencodingIDs()); });
    connect(&m_model, &LibraryListModel::itemsChanged, this, [this] {
        if (m_clearDialog)
            m_clearDialog->setMessage(clearMessage());
        highlightSelection();
    });
    connect(&m_selection, &Selection::changed, this, &RecentList::scrollToSelection);
    highlightSelection();
}

QSet<QUuid> RecentList::reencodingIDs() const
{
    return m_reencoder->reencodingIDs();
}

void RecentList::requestSelection()
{
    const QModelIndexList rows = m_view->selectionModel()->selectedIndexes();
    if (m_model.isChanging() || rows.isEmpty())
        return;
    const DownloadRecord *record = m_model.record(rows.constFirst());
    if (!record || record->id == m_selection.selectedID())
        return;
    forgetFiles();
    Q_EMIT selectionRequested(QUuid(record->id));
    highlightSelection();
}

void RecentList::highlightSelection()
{
    const auto id = m_selection.selectedID();
    const QModelIndex index = id ? m_model.indexOf(*id) : QModelIndex();
    if (index.isValid())
        m_view->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    else
        m_view->selectionModel()->clearSelection();
}

void RecentList::scrollToSelection()
{
    const QModelIndexList before = m_view->selectionModel()->selectedIndexes();
    highlightSelection();
    // A row that the user chose stays where it is.
    const QModelIndexList rows = m_view->selectionModel()->selectedIndexes();
    if (rows.isEmpty() || rows == before)
        return;
    if (rows.constFirst().row() == LibraryListModel::firstItem)
        m_view->scrollToTop();
    else
        m_view->scrollTo(rows.constFirst());
}

/// What is shown of the record or offered in its menu goes by the disk, so its row does, too.
void RecentList::forgetFiles()
{
    m_model.forgetFiles();
    m_view->viewport()->update();
}

Menu *RecentList::makeMenu(const DownloadRecord &shown)
{
    forgetFiles();
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
    const auto count = static_cast<int>(m_store.records().size());
    return count == 1
        ? tr("Removes 1 item from this list. Downloaded files are not deleted, and History is "
             "preserved.")
        : tr("Removes %n items from this list. Downloaded files are not deleted, and History is "
             "preserved.",
             nullptr, count);
}

UndoLine::UndoLine(std::chrono::milliseconds duration, QWidget *parent)
    : QWidget(parent),
      m_text(new Label(Label::Mode::Elided, Theme::TextStyle::Callout, Theme::Color::Secondary)),
      m_undo(new Button(Button::Style::Borderless, tr("Undo")))
{
    m_text->setElideMode(Qt::ElideMiddle);
    m_undo->setSize(Button::Size::Small);
    connect(m_undo, &Button::clicked, this, &UndoLine::undone);
    // A shortcut of the button itself would act only after its press has been animated.
    auto *undo = new QShortcut(QKeySequence::Undo, this, this, &UndoLine::undone);
    undo->setAutoRepeat(false);

    auto *row = new QHBoxLayout;
    row->setContentsMargins(12, 4, 12, 4);
    row->setSpacing(4);
    row->addWidget(m_text);
    row->addWidget(new Label(Theme::TextStyle::Callout, Theme::Color::Tertiary, u"·"_s));
    row->addWidget(m_undo);
    row->addStretch(1);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(new Divider);
    column->addLayout(row);

    m_timer.setInterval(duration);
    connect(&m_timer, &QTimer::timeout, this, &UndoLine::expire);
    hide();
}

void UndoLine::offer(const QString &title)
{
    m_text->setText(tr("Removed “%1”").arg(title));
    m_timer.start();
    show();
}

void UndoLine::expire()
{
    // Keep the line while the button has the focus: somebody may be about to press it.
    if (!m_undo->hasFocus())
        Q_EMIT expired();
}

} // namespace clipwren
