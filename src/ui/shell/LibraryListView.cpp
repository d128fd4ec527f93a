#include "ui/shell/LibraryListView.h"

#include "ui/components/Button.h"
#include "ui/components/Card.h"
#include "ui/components/FocusRing.h"
#include "ui/components/Label.h"
#include "ui/components/Menu.h"
#include "ui/components/Painting.h"
#include "ui/shell/AccessibleList.h"
#include "ui/shell/LibraryListModel.h"

#include <QContextMenuEvent>
#include <QDrag>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMimeData>
#include <QScrollBar>

#include <algorithm>

namespace clipwren {

/// The first row of a list: "New Download", the section's title, and a line for an empty list.
class ListHeader : public QWidget {
public:
    ListHeader(const QString &newDownload, const LibraryListView::Policy &policy)
        : m_newDownload(new Button(Button::Style::Borderless, newDownload, u"plus.circle.fill")),
          m_empty(new Label(Label::Mode::Paragraph, Theme::TextStyle::Callout,
                            Theme::Color::Secondary)),
          m_emptyText(policy.emptyText)
    {
        m_newDownload->setSize(Button::Size::Large);
        m_newDownload->setTextStyle(Theme::TextStyle::Label);
        m_newDownload->setSymbolGap(10);
        m_empty->setContentsMargins(0, 8, 0, 8);

        auto *column = new QVBoxLayout(this);
        column->setContentsMargins(16, 4, 16, 5);
        column->setSpacing(0);
        column->addWidget(m_newDownload);
        column->addSpacing(9);
        column->addWidget(
            new Label(Theme::TextStyle::SectionHeader, Theme::Color::Secondary, policy.title));
        column->addWidget(m_empty);
    }

    Button *newDownload() const { return m_newDownload; }
    void setEmpty(bool empty, bool filtered)
    {
        m_empty->setText(filtered ? LibraryListView::tr("No title matches") : m_emptyText);
        m_empty->setVisible(empty);
        updateGeometry();
    }

private:
    Button *m_newDownload;
    Label *m_empty;
    QString m_emptyText;
};

LibraryListView::LibraryListView(LibraryListModel &model, const Policy &policy, QWidget *parent)
    : QListView(parent), m_items(model), m_makeMenu(policy.makeMenu),
      m_header(new ListHeader(tr("New Download"), policy))
{
    installAccessibleList();
    setAccessibleName(policy.accessibleName);
    setFrameShape(NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    setSelectionMode(policy.selectable ? SingleSelection : NoSelection);
    setEditTriggers(NoEditTriggers);
    setDragDropMode(DragOnly);
    viewport()->setAutoFillBackground(false);
    viewport()->setAttribute(Qt::WA_Hover);
    viewport()->setMouseTracking(true);

    setModel(&model);
    setIndexWidget(model.index(0), m_header);
    m_header->newDownload()->installEventFilter(this);
    connect(m_header->newDownload(), &Button::clicked, this,
            &LibraryListView::newDownloadRequested);
    connect(&model, &LibraryListModel::itemsChanged, this, &LibraryListView::updateHeader);
    updateHeader();

    m_spinnerTimer.setInterval(spinnerStepMilliseconds);
    connect(&m_spinnerTimer, &QTimer::timeout, this, &LibraryListView::turnSpinner);
    const auto update = [this] { startOrStopSpinner(); };
    connect(&model, &QAbstractItemModel::dataChanged, this, update);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, update);
    connect(verticalScrollBar(), &QScrollBar::rangeChanged, this, update);
}

void LibraryListView::updateHeader()
{
    const bool isEmpty = m_items.itemCount() == 0;
    m_header->setEmpty(isEmpty, m_items.isFiltered());
    setFocusPolicy(isEmpty ? Qt::NoFocus : Qt::StrongFocus);
    scheduleDelayedItemsLayout();
}

int LibraryListView::headerHeight() const
{
    return m_header->hasHeightForWidth() ? m_header->heightForWidth(viewport()->width())
                                         : m_header->sizeHint().height();
}

QSize LibraryListView::minimumSizeHint() const
{
    return QListView::minimumSizeHint().expandedTo({m_header->minimumSizeHint().width(), 0});
}

QWidget &LibraryListView::newDownload() const
{
    return *m_header->newDownload();
}

bool LibraryListView::hasRing(const QModelIndex &index) const
{
    return index == m_menuRow || (m_lastInputWasKeyboard && hasFocus() && index == currentIndex());
}

void LibraryListView::openMenu(const QModelIndex &index, const QPoint &place)
{
    if (!m_items.itemAt(index))
        return;
    const auto setMenuRow = [this](const QModelIndex &row) {
        m_menuRow = row;
        viewport()->update();
    };
    Menu *menu = m_makeMenu(index);
    setMenuRow(index);
    connect(menu, &Menu::aboutToHide, this, [setMenuRow] { setMenuRow({}); });
    menu->popup(place);
}

void LibraryListView::openMenuByKey(const QModelIndex &index)
{
    if (!m_items.itemAt(index))
        return;
    scrollTo(index);
    openMenu(index, viewport()->mapToGlobal(visualRect(index).center()));
}

bool LibraryListView::eventFilter(QObject *watched, QEvent *event)
{
    // Scroll to the button when it gets the keyboard focus.
    if (watched == m_header->newDownload() && event->type() == QEvent::FocusIn)
        scrollToTop();
    return QListView::eventFilter(watched, event);
}

void LibraryListView::keyPressEvent(QKeyEvent *event)
{
    m_lastInputWasKeyboard = true;
    const QModelIndex index = currentIndex();
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (index.isValid())
            Q_EMIT returnPressed(index);
        return;
    case Qt::Key_Delete:
        // Ignore auto-repeat: a key held down too long would empty the list.
        if (index.isValid() && !event->isAutoRepeat())
            Q_EMIT deletePressed(index);
        return;
    case Qt::Key_F10:
        // The menu key arrives as a context menu event.
        if (event->modifiers() == Qt::ShiftModifier) {
            openMenuByKey(index);
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
    m_lastInputWasKeyboard = false;
    if (event->button() == Qt::LeftButton)
        QListView::mousePressEvent(event);
}

void LibraryListView::contextMenuEvent(QContextMenuEvent *event)
{
    if (event->reason() == QContextMenuEvent::Keyboard)
        openMenuByKey(currentIndex());
    else
        openMenu(indexAt(event->pos()), event->globalPos());
}

void LibraryListView::startDrag(Qt::DropActions actions)
{
    // Not of the selection: one of the lists has none.
    QMimeData *address = m_items.mimeData({currentIndex()});
    if (!address)
        return;
    auto *drag = new QDrag(this);
    drag->setMimeData(address);
    drag->exec(actions);
}

QModelIndex LibraryListView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    const QModelIndex index = QListView::moveCursor(action, modifiers);
    // Home would lead to the header.
    return index.row() < LibraryListModel::firstItem && m_items.itemCount() > 0
        ? m_items.index(LibraryListModel::firstItem)
        : index;
}

void LibraryListView::showEvent(QShowEvent *event)
{
    QListView::showEvent(event);
    // Tab goes from the button down to the items. Only takes effect on what has a focus policy.
    setFocusPolicy(Qt::StrongFocus);
    setTabOrder(m_header->newDownload(), this);
    updateHeader();
}

void LibraryListView::focusInEvent(QFocusEvent *event)
{
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason)
        m_lastInputWasKeyboard = true;
    QListView::focusInEvent(event);
}

QItemSelectionModel::SelectionFlags LibraryListView::selectionCommand(const QModelIndex &index,
                                                                      const QEvent *event) const
{
    // Only "New Download" clears the selection.
    const auto command = QListView::selectionCommand(index, event);
    return command.testFlag(QItemSelectionModel::Deselect) ? QItemSelectionModel::NoUpdate
                                                           : command;
}

bool LibraryListView::event(QEvent *event)
{
    // Queued, as rows have no place before the layout.
    if (event->type() == QEvent::Show || event->type() == QEvent::Hide
        || event->type() == QEvent::Resize)
        QMetaObject::invokeMethod(this, &LibraryListView::startOrStopSpinner, Qt::QueuedConnection);
    // The text of an empty list is wrapped.
    if (event->type() == QEvent::Resize && m_items.itemCount() == 0)
        scheduleDelayedItemsLayout();
    return QListView::event(event);
}

void LibraryListView::startOrStopSpinner()
{
    if (Theme::current().reducedMotion() || spinnerRowsOnScreen().isEmpty())
        m_spinnerTimer.stop();
    else if (!m_spinnerTimer.isActive())
        m_spinnerTimer.start();
}

void LibraryListView::turnSpinner()
{
    m_spinnerDegrees = (m_spinnerDegrees + spinnerStepDegrees) % 360;
    const QList<QModelIndex> rows = spinnerRowsOnScreen();
    for (const QModelIndex &row : rows)
        update(row);
    if (rows.isEmpty())
        m_spinnerTimer.stop();
}

QList<QModelIndex> LibraryListView::spinnerRowsOnScreen() const
{
    QList<QModelIndex> rows;
    if (!isVisible())
        return rows;
    const QRect screen = viewport()->rect();
    const int first = std::max(indexAt(screen.topLeft()).row(), 0);
    for (int row = first; row < m_items.rowCount(); ++row) {
        const QModelIndex index = m_items.index(row);
        if (!visualRect(index).intersects(screen))
            break;
        if (index.data(LibraryListModel::SpinnerRole).toBool())
            rows << index;
    }
    return rows;
}

ListFooter::ListFooter(const LibraryListModel &model, LibraryListView &view, Icon icon,
                       const QString &clearText, QWidget *parent)
    : QWidget(parent)
{
    auto *clear = new Button(Button::Style::Borderless, clearText, icon);
    clear->setSize(Button::Size::Small);
    clear->setTextStyle(Theme::TextStyle::Callout);
    clear->setSymbolGap(6);
    clear->setDestructive(true);
    connect(clear, &Button::clicked, this, &ListFooter::clearRequested);
    auto *count = new Label(Theme::TextStyle::CaptionDigits, Theme::Color::Tertiary);

    auto *row = new QHBoxLayout;
    // The button is taller than its text.
    row->setContentsMargins(12, 4, 12, 4);
    row->addWidget(clear);
    row->addStretch(1);
    row->addWidget(count);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(new Divider);
    column->addLayout(row);

    const auto render = [this, &model, &view, count] {
        const bool isOffered = model.itemCount() > 0 && !model.isFiltered();
        if (!isOffered)
            passFocus(*this, view.newDownload());
        count->setText(QString::number(model.itemCount()));
        setVisible(isOffered);
    };
    connect(&model, &LibraryListModel::itemsChanged, this, render);
    render();
}

} // namespace clipwren
