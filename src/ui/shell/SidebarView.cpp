#include "ui/shell/SidebarView.h"

#include "core/library/DownloadStore.h"
#include "core/library/HistoryStore.h"
#include "platform/desktop/Desktop.h"
#include "ui/components/Banner.h"
#include "ui/components/Button.h"
#include "ui/components/Card.h"
#include "ui/components/FocusRing.h"
#include "ui/components/Label.h"
#include "ui/components/Picker.h"
#include "ui/shell/HistoryList.h"
#include "ui/shell/LibraryListView.h"
#include "ui/shell/RecentList.h"
#include "ui/shell/Selection.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPaintEvent>
#include <QPainter>
#include <QShortcut>

namespace clipwren {

namespace {

using namespace Qt::StringLiterals;

constexpr int leastWidth = 240;
constexpr int headerHeight = 42;
constexpr double dividerOpacity = 0.5;

} // namespace

SidebarView::SidebarView(DownloadStore &store, HistoryStore &history, const ToolEnvironment &tools,
                         Desktop &desktop, const Selection &selection,
                         const QString &downloadDirectory, QWidget *parent)
    : QWidget(parent), m_store(store), m_history(history), m_selection(selection),
      m_tabs(new SegmentedControl({tr("Recent"), tr("History")})), m_filterPlace(new QVBoxLayout),
      m_recentList(new RecentList(store, tools, desktop, selection)),
      m_historyList(new HistoryList(history, desktop)), m_unsaved(new Banner)
{
    auto *tabs = new QHBoxLayout;
    tabs->setContentsMargins(10, 10, 10, 6);
    tabs->addWidget(m_tabs);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(makeHeader(desktop, downloadDirectory));
    column->addLayout(tabs);
    column->addWidget(new Divider(0, dividerOpacity));
    column->addLayout(m_filterPlace);
    column->addWidget(m_recentList, 1);
    column->addWidget(m_historyList, 1);
    m_unsavedBar = makeUnsavedBar();
    column->addWidget(m_unsavedBar);

    connect(m_tabs, &SegmentedControl::chosen, this,
            [this](int index) { setTab(static_cast<Tab>(index)); });
    connect(m_recentList, &RecentList::selectionRequested, this, &SidebarView::selectionRequested);
    connect(m_recentList, &RecentList::newDownloadRequested, this,
            &SidebarView::requestNoSelection);
    connect(m_historyList, &HistoryList::newDownloadRequested, this, [this] {
        requestNoSelection();
        setTab(Tab::recent);
    });
    connect(m_recentList, &RecentList::redownloadRequested, this,
            &SidebarView::redownloadRequested);
    connect(m_historyList, &HistoryList::redownloadRequested, this,
            &SidebarView::redownloadRequested);
    connect(&m_store, &DownloadStore::changed, this, &SidebarView::renderSaveError);
    connect(&m_history, &HistoryStore::changed, this, &SidebarView::renderSaveError);
    setTab(Tab::recent);
    renderSaveError();
}

QLayout *SidebarView::makeHeader(Desktop &desktop, const QString &downloadDirectory)
{
    auto *folder = Button::iconOnly(u"folder", tr("Open downloads folder in Finder"));
    folder->setSize(Button::Size::Large);
    connect(folder, &Button::clicked, this,
            [&desktop, downloadDirectory] { desktop.reveal(downloadDirectory); });
    auto *header = new QHBoxLayout;
    header->setContentsMargins(16, 10, 12, 0);
    header->addWidget(new Label(Theme::TextStyle::SidebarTitle, Theme::Color::Text, u"Clipwren"_s));
    header->addStretch(1);
    header->addWidget(folder);
    header->addStrut(headerHeight - 10);
    return header;
}

QWidget *SidebarView::makeUnsavedBar()
{
    m_unsaved->setTitle(tr("The lists could not be saved"));
    auto *again = new Button(Button::Style::Bordered, tr("Try Again"));
    again->setSize(Button::Size::Small);
    connect(again, &Button::clicked, this, &SidebarView::saveAgain);
    auto *bar = new QWidget;
    auto *column = new QVBoxLayout(bar);
    column->setContentsMargins(10, 8, 10, 8);
    column->setSpacing(8);
    column->addWidget(m_unsaved);
    column->addWidget(again);
    return bar;
}

void SidebarView::makeFilter()
{
    m_filter = new FieldBox(u"magnifyingglass", tr("Filter by title"));
    QLineEdit *field = m_filter->lineEdit();
    field->setPlaceholderText(tr("Filter by title"));
    connect(field, &QLineEdit::textChanged, this, &SidebarView::filter);
    m_filterRow = new QWidget;
    auto *row = new QHBoxLayout(m_filterRow);
    row->setContentsMargins(10, 8, 10, 4);
    row->addWidget(m_filter);
    new QShortcut(Qt::Key_Escape, m_filterRow, this, &SidebarView::endFiltering,
                  Qt::WidgetWithChildrenShortcut);
    new QShortcut(
        Qt::Key_Down, m_filterRow, this, [this] { shownList().setFocus(Qt::TabFocusReason); },
        Qt::WidgetWithChildrenShortcut);
    m_filterPlace->addWidget(m_filterRow);
}

void SidebarView::startFiltering()
{
    if (!m_filter)
        makeFilter();
    m_filterRow->show();
    m_filter->lineEdit()->selectAll();
    m_filter->lineEdit()->setFocus(Qt::ShortcutFocusReason);
}

void SidebarView::filter(const QString &text)
{
    // The other list follows when it is shown.
    if (m_tab == Tab::recent)
        m_recentList->setFilter(text);
    else
        m_historyList->setFilter(text);
}

void SidebarView::endFiltering()
{
    m_filter->lineEdit()->clear();
    passFocus(*m_filterRow, shownList());
    m_filterRow->hide();
}

void SidebarView::setTab(Tab tab)
{
    m_tab = tab;
    if (m_filter)
        filter(m_filter->lineEdit()->text());
    m_tabs->setCurrentIndex(static_cast<int>(tab));
    const bool isRecent = tab == Tab::recent;
    QWidget *const left = isRecent ? static_cast<QWidget *>(m_historyList) : m_recentList;
    QWidget *const shown = isRecent ? static_cast<QWidget *>(m_recentList) : m_historyList;
    shown->show();
    passFocus(*left, shownList().newDownload());
    left->hide();
}

QSize SidebarView::minimumSizeHint() const
{
    return QWidget::minimumSizeHint().expandedTo({leastWidth, 0});
}

LibraryListView &SidebarView::shownList() const
{
    return m_tab == Tab::recent ? m_recentList->view() : m_historyList->view();
}

void SidebarView::requestNoSelection()
{
    if (m_selection.selectedID())
        Q_EMIT selectionRequested(std::nullopt);
}

void SidebarView::saveAgain()
{
    m_store.saveAgain();
    m_history.saveAgain();
}

void SidebarView::renderSaveError()
{
    const auto error = m_store.saveError() ? m_store.saveError() : m_history.saveError();
    if (error) {
        m_unsaved->setMessage(tr("%1. What is new in them is lost when Clipwren is closed before "
                                 "they can be saved.")
                                  .arg(*error));
    } else {
        passFocus(*m_unsavedBar, shownList().newDownload());
    }
    m_unsavedBar->setVisible(error.has_value());
}

QSet<QUuid> SidebarView::reencodingIDs() const
{
    return m_recentList->reencodingIDs();
}

void SidebarView::refreshFiles()
{
    m_recentList->refresh();
    m_historyList->view().viewport()->update();
}

bool SidebarView::event(QEvent *event)
{
    if (event->type() == QEvent::WindowActivate) {
        refreshFiles();
        saveAgain();
    }
    return QWidget::event(event);
}

void SidebarView::paintEvent(QPaintEvent *event)
{
    QPainter(this).fillRect(event->rect(), Theme::current().color(Theme::Color::Sidebar));
}

} // namespace clipwren
