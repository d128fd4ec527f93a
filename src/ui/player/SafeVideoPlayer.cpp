#include "ui/player/SafeVideoPlayer.h"

#include "ui/player/PlayerPane.h"

#include <QDrag>
#include <QFileInfo>
#include <QMimeData>
#include <QScreen>
#include <QShowEvent>
#include <QVBoxLayout>

#include <utility>

namespace clipwren {

SafeVideoPlayer::SafeVideoPlayer(MediaPlayerFactory makePlayer, QWidget *parent)
    : SafeVideoPlayer(std::move(makePlayer), Options(), parent)
{
}

SafeVideoPlayer::SafeVideoPlayer(MediaPlayerFactory makePlayer, const Options &options,
                                 QWidget *parent)
    : QWidget(parent), m_makePlayer(std::move(makePlayer)), m_options(options),
      m_pane(new PlayerPane({.fullScreen = PlayerControls::FullScreen::CanEnter,
                             .radius = options.radius,
                             .hideControlsAfter = options.hideControlsAfter}))
{
    auto *const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_pane);
    setFocusProxy(m_pane);
    connect(m_pane, &PlayerPane::fullScreenToggled, this, &SafeVideoPlayer::enterFullScreen);
    connect(m_pane, &PlayerPane::dragged, this, &SafeVideoPlayer::dragFile);
}

SafeVideoPlayer::~SafeVideoPlayer()
{
    delete m_fullScreen;
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
        m_player = m_makePlayer();
        if (isVisible())
            m_pane->setPlayer(m_player.get());
    }
    m_player->load(url);
}

void SafeVideoPlayer::dragFile()
{
    if (!m_player)
        return;
    auto *file = new QMimeData;
    file->setUrls({m_player->url()});
    auto *drag = new QDrag(this);
    drag->setMimeData(file);
    drag->exec(Qt::CopyAction);
}

void SafeVideoPlayer::enterFullScreen()
{
    if (m_fullScreen || !m_player || !isVisible())
        return;
    m_pane->setPlayer(nullptr);
    m_fullScreen = new PlayerPane({.fullScreen = PlayerControls::FullScreen::CanLeave,
                                   .hideControlsAfter = m_options.hideControlsAfter},
                                  this);
    m_fullScreen->setWindowFlag(Qt::Window);
    m_fullScreen->setWindowTitle(QFileInfo(m_player->url().path()).fileName());
    m_fullScreen->setPlayer(m_player.get());
    connect(m_fullScreen, &PlayerPane::fullScreenToggled, this, &SafeVideoPlayer::leaveFullScreen);
    m_fullScreen->setGeometry(screen()->geometry());
    m_fullScreen->showFullScreen();
    m_fullScreen->activateWindow();
    m_fullScreen->setFocus(Qt::OtherFocusReason);
}

void SafeVideoPlayer::leaveFullScreen()
{
    if (!m_fullScreen)
        return;
    // This may run inside an event handler of the window.
    PlayerPane *const window = std::exchange(m_fullScreen, nullptr);
    window->setPlayer(nullptr);
    window->hide();
    window->deleteLater();
    if (!isVisible())
        return;
    m_pane->setPlayer(m_player.get());
    m_pane->setFocus(Qt::OtherFocusReason);
}

void SafeVideoPlayer::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (!event->spontaneous() && !m_fullScreen)
        m_pane->setPlayer(m_player.get());
}

void SafeVideoPlayer::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    // Keep playing while the window is minimised.
    if (event->spontaneous())
        return;
    leaveFullScreen();
    m_pane->setPlayer(nullptr);
    if (m_player)
        m_player->pause();
}

} // namespace clipwren
