#include "ui/player/SafeVideoPlayer.h"

#include "ui/player/FullScreenPlayer.h"
#include "ui/player/PlayerModule.h"

#include <QShowEvent>
#include <QVBoxLayout>

#include <utility>

namespace clipwren {

SafeVideoPlayer::SafeVideoPlayer(PlayerModule &module, QWidget *parent)
    : SafeVideoPlayer(module, Options(), parent)
{
}

SafeVideoPlayer::SafeVideoPlayer(PlayerModule &module, const Options &options, QWidget *parent)
    : VideoPlayerView(parent), m_module(module), m_options(options),
      m_pane(new PlayerPane(module,
                            {.fullScreen = PlayerControls::FullScreen::CanEnter,
                             .radius = options.radius,
                             .hideControlsAfter = options.hideControlsAfter}))
{
    auto *const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_pane);
    setFocusProxy(m_pane);
    connect(m_pane, &PlayerPane::fullScreenToggled, this, &SafeVideoPlayer::enterFullScreen);
}

SafeVideoPlayer::~SafeVideoPlayer()
{
    delete std::exchange(m_fullScreen, nullptr);
}

void SafeVideoPlayer::setUrl(const QUrl &url)
{
    if (url.isEmpty()) {
        leaveFullScreen();
        m_player.reset();
        return;
    }
    if (m_player && m_player->url() == url)
        return;
    if (!m_player) {
        m_player = m_module.makePlayer();
        if (isVisible())
            m_pane->setPlayer(m_player.get());
    }
    m_player->load(url);
}

void SafeVideoPlayer::enterFullScreen()
{
    if (m_fullScreen || !m_player || !isVisible())
        return;
    m_pane->setPlayer(nullptr);
    m_fullScreen = new FullScreenPlayer(m_module, *m_player, m_options.hideControlsAfter, this);
    connect(m_fullScreen, &FullScreenPlayer::left, this, &SafeVideoPlayer::leaveFullScreen);
    m_fullScreen->open();
}

void SafeVideoPlayer::leaveFullScreen()
{
    if (!m_fullScreen)
        return;
    // Its own event may be what brought us here.
    FullScreenPlayer *const window = std::exchange(m_fullScreen, nullptr);
    window->dismiss();
    window->deleteLater();
    if (!isVisible())
        return;
    m_pane->setPlayer(m_player.get());
    m_pane->setFocus(Qt::OtherFocusReason);
}

void SafeVideoPlayer::showEvent(QShowEvent *event)
{
    VideoPlayerView::showEvent(event);
    if (!event->spontaneous() && !m_fullScreen)
        m_pane->setPlayer(m_player.get());
}

void SafeVideoPlayer::hideEvent(QHideEvent *event)
{
    VideoPlayerView::hideEvent(event);
    // A minimised window goes on.
    if (event->spontaneous())
        return;
    leaveFullScreen();
    m_pane->setPlayer(nullptr);
    if (m_player)
        m_player->pause();
}

} // namespace clipwren
