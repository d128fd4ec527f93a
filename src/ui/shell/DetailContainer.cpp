#include "ui/shell/DetailContainer.h"

#include "core/library/DownloadStore.h"
#include "core/process/ToolEnvironment.h"
#include "ui/components/Button.h"
#include "ui/components/Theme.h"
#include "ui/shell/DownloadDetailView.h"
#include "ui/shell/Selection.h"
#include "ui/shell/SetupView.h"

#include <QPainter>
#include <QStackedLayout>

#include <algorithm>
#include <utility>

namespace clipwren {

DetailContainer::DetailContainer(ApplicationContext context, const Selection &selection,
                                 QWidget *parent)
    : QWidget(parent), m_context(std::move(context)), m_selection(selection),
      m_layout(new QStackedLayout(this))
{
    connect(&m_selection, &Selection::changed, this, &DetailContainer::followSelection);
    connect(&m_context.tools, &ToolEnvironment::changed, this, &DetailContainer::render);
    connect(&m_context.store, &DownloadStore::changed, this, [this] {
        // A selected record that was removed and is brought back ends no download.
        if (!isDownloading())
            render();
    });
    render();
}

DetailContainer::~DetailContainer()
{
    // Delete the screen first: it refers to the downloader.
    delete m_screen;
    delete m_downloader;
}

void DetailContainer::followSelection()
{
    const Kind before = m_kind;
    render();
    // Keep focus in the sidebar during keyboard navigation, but pass it to a new downloader.
    if (m_kind != before && m_kind == Kind::Downloader)
        m_screen->setFocus(Qt::OtherFocusReason);
}

bool DetailContainer::isDownloading() const
{
    return m_downloader
        && (m_downloader->phase() == Phase::downloading
            || m_downloader->phase() == Phase::processing);
}

std::optional<DownloadRecord> DetailContainer::selectedRecord() const
{
    const auto id = m_selection.selectedID();
    if (!id)
        return std::nullopt;
    const QList<DownloadRecord> &records = m_context.store.records();
    const auto record = std::ranges::find(records, *id, &DownloadRecord::id);
    return record != records.end() ? std::optional(*record) : std::nullopt;
}

void DetailContainer::render()
{
    if (!m_context.tools.allFound()) {
        if (m_kind != Kind::Setup)
            showScreen(Kind::Setup, new SetupView(m_context.tools, m_context.desktop));
        return;
    }
    const std::optional<DownloadRecord> record = selectedRecord();
    if (record && m_kind == Kind::Detail) {
        static_cast<DownloadDetailView *>(m_screen)->setRecord(*record);
    } else if (record) {
        showScreen(Kind::Detail,
                   new DownloadDetailView(*record, m_context.tools, m_context.desktop,
                                          m_context.makePlayer));
    } else if (m_kind != Kind::Downloader) {
        showScreen(Kind::Downloader, makeDownloader());
    }
}

DetailScreen *DetailContainer::makeDownloader()
{
    m_downloader = new DownloaderView(m_context, [this](QUuid id) { Q_EMIT completed(id); });
    return new DownloaderScreen(*m_downloader, m_context.desktop, m_context.downloadDirectory);
}

void DetailContainer::showScreen(Kind kind, DetailScreen *screen)
{
    DetailScreen *const earlier = std::exchange(m_screen, screen);
    const QWidget *const focus = window()->focusWidget();
    const bool takesFocus = !focus || focus == this || isAncestorOf(focus);
    // A signal of the downloader may have led here, so delete both later, the screen first.
    if (std::exchange(m_kind, kind) == Kind::Downloader) {
        DownloaderView *const left =
            kind == Kind::Downloader ? nullptr : std::exchange(m_downloader, nullptr);
        if (left) {
            left->leave();
            connect(earlier, &QObject::destroyed, left, &QObject::deleteLater);
        }
    }
    m_layout->addWidget(screen);
    m_layout->setCurrentWidget(screen);
    Q_EMIT screenChanged();
    if (earlier) {
        m_layout->removeWidget(earlier);
        earlier->hide();
        earlier->deleteLater();
    }
    if (takesFocus)
        screen->setFocus(Qt::OtherFocusReason);
}

void DetailContainer::paintEvent(QPaintEvent *)
{
    QPainter(this).fillRect(rect(), Theme::current().color(Theme::Color::Background));
}

} // namespace clipwren
