#include "ui/shell/SidebarView.h"

#include "core/library/DownloadStore.h"
#include "platform/desktop/Desktop.h"
#include "ui/components/Button.h"
#include "ui/components/Divider.h"
#include "ui/components/Label.h"
#include "ui/components/PassFocus.h"
#include "ui/components/SegmentedControl.h"
#include "ui/shell/HistoryList.h"
#include "ui/shell/LibraryListView.h"
#include "ui/shell/RecentList.h"
#include "ui/shell/UnsavedBanner.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPaintEvent>
#include <QPainter>

namespace clipwren {

namespace {

constexpr int headerHeight = 42;
constexpr double dividerOpacity = 0.5;

} // namespace

SidebarView::SidebarView(DownloadStore &store, HistoryStore &history, const ToolEnvironment &tools,
                         Desktop &desktop, QWidget *parent)
    : QWidget(parent), m_tabs(new SegmentedControl({tr("Recent"), tr("History")})),
      m_recentList(new RecentList(store, tools, desktop)),
      m_historyList(new HistoryList(history, desktop)), m_unsaved(new UnsavedBanner(store, history))
{
    auto *tabs = new QHBoxLayout;
    tabs->setContentsMargins(10, 10, 10, 6);
    tabs->addWidget(m_tabs);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(makeHeader(desktop));
    column->addLayout(tabs);
    column->addWidget(new Divider(0, dividerOpacity));
    column->addWidget(m_recentList, 1);
    column->addWidget(m_historyList, 1);
    column->addWidget(m_unsaved);

    connect(m_tabs, &SegmentedControl::chosen, this,
            [this](int index) { choose(static_cast<Tab>(index)); });
    connect(m_recentList, &RecentList::selected, this, &SidebarView::select);
    connect(m_recentList, &RecentList::newDownloadRequested, this,
            [this] { select(std::nullopt); });
    connect(m_historyList, &HistoryList::newDownloadRequested, this, [this] {
        select(std::nullopt);
        choose(Tab::recent);
    });
    connect(m_recentList, &RecentList::redownloadRequested, this,
            &SidebarView::redownloadRequested);
    connect(m_historyList, &HistoryList::redownloadRequested, this,
            &SidebarView::redownloadRequested);
    connect(m_unsaved, &UnsavedBanner::aboutToHide, this,
            [this] { passFocus(*m_unsaved, shownList().newDownload()); });
    setTab(Tab::recent);
}

QLayout *SidebarView::makeHeader(Desktop &desktop)
{
    auto *folder = Button::iconOnly(u"folder", tr("Open downloads folder in Finder"));
    folder->setSize(Button::Size::Large);
    connect(folder, &Button::clicked, this,
            [&desktop] { desktop.reveal(DownloadStore::defaultDownloadDirectory()); });
    auto *header = new QHBoxLayout;
    header->setContentsMargins(16, 10, 12, 0);
    header->addWidget(
        new Label(Theme::TextStyle::SidebarTitle, Theme::Color::Text, QStringLiteral("Clipwren")));
    header->addStretch(1);
    header->addWidget(folder);
    header->addStrut(headerHeight - 10);
    return header;
}

void SidebarView::setSelection(const std::optional<QUuid> &id)
{
    m_selection = id;
    m_recentList->setSelection(id);
}

void SidebarView::setTab(Tab tab)
{
    m_tab = tab;
    m_tabs->setCurrentIndex(static_cast<int>(tab));
    const bool isRecent = tab == Tab::recent;
    QWidget *const left = isRecent ? static_cast<QWidget *>(m_historyList) : m_recentList;
    QWidget *const shown = isRecent ? static_cast<QWidget *>(m_recentList) : m_historyList;
    shown->show();
    passFocus(*left, shownList().newDownload());
    left->hide();
}

LibraryListView &SidebarView::shownList() const
{
    return m_tab == Tab::recent ? m_recentList->view() : m_historyList->view();
}

void SidebarView::select(const std::optional<QUuid> &id)
{
    const bool changes = m_selection != id;
    setSelection(id);
    if (changes)
        Q_EMIT selectionChanged(id);
}

void SidebarView::choose(Tab tab)
{
    const bool changes = m_tab != tab;
    setTab(tab);
    if (changes)
        Q_EMIT tabChanged(tab);
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
        m_unsaved->tryAgain();
    }
    return QWidget::event(event);
}

void SidebarView::paintEvent(QPaintEvent *event)
{
    QPainter(this).fillRect(event->rect(), Theme::current().color(Theme::Color::Sidebar));
}

} // namespace clipwren
