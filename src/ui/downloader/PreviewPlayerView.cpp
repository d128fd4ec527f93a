#include "ui/downloader/PreviewPlayerView.h"

#include "ui/player/PlayerPane.h"
#include "workflow/preview/PreviewPlayerController.h"

#include <QShowEvent>
#include <QVBoxLayout>

namespace clipwren {
namespace {

constexpr double radius = 12; // of the corners, in logical pixels

} // namespace

PreviewPlayerView::PreviewPlayerView(PreviewPlayerController &controller, QWidget *parent)
    : QWidget(parent), m_controller(controller), m_pane(new PlayerPane({.radius = radius}))
{
    auto *const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_pane);
    setFocusProxy(m_pane);
    connect(m_pane, &PlayerPane::jumped, &m_controller, &PreviewPlayerController::endRange);
}

PreviewPlayerView::~PreviewPlayerView()
{
    detach();
}

void PreviewPlayerView::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (event->spontaneous() || m_following)
        return;
    m_following =
        connect(&m_controller, &PreviewPlayerController::changed, this, &PreviewPlayerView::render);
    render();
}

void PreviewPlayerView::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    if (!event->spontaneous())
        detach();
}

void PreviewPlayerView::render()
{
    if (m_pane->player() != m_controller.player())
        m_pane->setPlayer(m_controller.player());
}

// Pausing makes the controller tell of it, so following ends first.
void PreviewPlayerView::detach()
{
    disconnect(m_following);
    m_following = {};
    MediaPlayer *const player = m_pane->player();
    m_pane->setPlayer(nullptr);
    if (player && player == m_controller.player())
        m_controller.pause();
}

} // namespace clipwren
