#include "ui/shell/LibraryListView.h"

#include "ui/components/Button.h"
#include "ui/shell/LibraryListModel.h"
#include "ui/shell/ListLead.h"

#include <QContextMenuEvent>
#include <QKeyEvent>

namespace clipwren {

LibraryListView::LibraryListView(LibraryListModel &model, ListLead *lead, const QString &name,
                                 QWidget *parent)
    : QListView(parent), m_items(model), m_lead(lead)
{
    setAccessibleName(name);
    setFrameShape(NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    viewport()->setAutoFillBackground(false);
    viewport()->setAttribute(Qt::WA_Hover);
    viewport()->setMouseTracking(true);

    setModel(&model);
    setIndexWidget(model.index(0), lead);
    lead->newDownload()->installEventFilter(this);
    connect(&model, &LibraryListModel::rowsInserted, this, &LibraryListView::updateLead);
    connect(&model, &LibraryListModel::rowsRemoved, this, &LibraryListView::updateLead);
    updateLead();
}

void LibraryListView::updateLead()
{
    const bool isEmpty = m_items.itemCount() == 0;
    m_lead->setEmpty(isEmpty);
    setFocusPolicy(isEmpty ? Qt::NoFocus : Qt::StrongFocus);
    scheduleDelayedItemsLayout();
}

int LibraryListView::leadHeight() const
{
    return m_lead->sizeHint().height();
}

QWidget &LibraryListView::newDownload() const
{
    return *m_lead->newDownload();
}

bool LibraryListView::hasRing(const QModelIndex &index) const
{
    return index == m_menuRow || (m_byKeyboard && hasFocus() && index == currentIndex());
}

void LibraryListView::setMenuRow(const QModelIndex &index)
{
    m_menuRow = index;
    viewport()->update();
}

bool LibraryListView::eventFilter(QObject *watched, QEvent *event)
{
    // The keyboard must not be where nobody sees it.
    if (watched == m_lead->newDownload() && event->type() == QEvent::FocusIn)
        scrollToTop();
    return QListView::eventFilter(watched, event);
}

void LibraryListView::keyPressEvent(QKeyEvent *event)
{
    m_byKeyboard = true;
    const QModelIndex index = currentIndex();
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (index.isValid())
            Q_EMIT returnPressed(index);
        return;
    case Qt::Key_Delete:
        // Held down a moment too long, it would empty the list.
        if (index.isValid() && !event->isAutoRepeat())
            Q_EMIT deletePressed(index);
        return;
    case Qt::Key_F10:
        // The menu key itself comes as an event of its own.
        if (event->modifiers() == Qt::ShiftModifier) {
            askForMenu(index);
            return;
        }
        [[fallthrough]];
    default:
        QListView::keyPressEvent(event);
    }
    if (currentIndex().row() == LibraryListModel::firstItem)
        scrollToTop();
    viewport()->update();
}

void LibraryListView::mousePressEvent(QMouseEvent *event)
{
    m_byKeyboard = false;
    if (event->button() == Qt::LeftButton)
        QListView::mousePressEvent(event);
}

void LibraryListView::contextMenuEvent(QContextMenuEvent *event)
{
    if (event->reason() == QContextMenuEvent::Keyboard) {
        askForMenu(currentIndex());
    } else if (const QModelIndex index = indexAt(event->pos()); m_items.itemAt(index)) {
        Q_EMIT menuRequested(index, event->globalPos());
    }
}

void LibraryListView::askForMenu(const QModelIndex &index)
{
    if (!m_items.itemAt(index))
        return;
    scrollTo(index);
    Q_EMIT menuRequested(index, viewport()->mapToGlobal(visualRect(index).center()));
}

QModelIndex LibraryListView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    const QModelIndex index = QListView::moveCursor(action, modifiers);
    // Home would lead to what lies above the items.
    return index.row() < LibraryListModel::firstItem && m_items.itemCount() > 0
        ? m_items.index(LibraryListModel::firstItem)
        : index;
}

void LibraryListView::showEvent(QShowEvent *event)
{
    QListView::showEvent(event);
    // From the button down to the items. Only takes effect on what has a focus policy.
    setFocusPolicy(Qt::StrongFocus);
    setTabOrder(m_lead->newDownload(), this);
    updateLead();
}

void LibraryListView::focusInEvent(QFocusEvent *event)
{
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason)
        m_byKeyboard = true;
    QListView::focusInEvent(event);
}

QItemSelectionModel::SelectionFlags LibraryListView::selectionCommand(const QModelIndex &index,
                                                                      const QEvent *event) const
{
    // Only "New Download" leads back from an item.
    const auto command = QListView::selectionCommand(index, event);
    return command.testFlag(QItemSelectionModel::Deselect) ? QItemSelectionModel::NoUpdate
                                                           : command;
}

} // namespace clipwren
