#include "ui/player/FullScreenPlayer.h"

#include <QFileInfo>
#include <QScreen>
#include <QVBoxLayout>

namespace clipwren {

FullScreenPlayer::FullScreenPlayer(PlayerModule &module, MediaPlayer &player,
                                   std::chrono::milliseconds hideControlsAfter, QWidget *owner)
    : QWidget(owner, Qt::Window),
      m_pane(new PlayerPane(module,
                            {.fullScreen = PlayerControls::FullScreen::CanLeave,
                             .hideControlsAfter = hideControlsAfter}))
{
    setWindowTitle(QFileInfo(player.url().path()).fileName());
    auto *const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_pane);
    m_pane->setPlayer(&player);
    connect(m_pane, &PlayerPane::fullScreenToggled, this, &FullScreenPlayer::left);
}

void FullScreenPlayer::open()
{
    setGeometry(parentWidget()->screen()->geometry());
    showFullScreen();
    activateWindow();
    m_pane->setFocus(Qt::OtherFocusReason);
}

void FullScreenPlayer::dismiss()
{
    m_pane->setPlayer(nullptr);
    hide();
}

void FullScreenPlayer::closeEvent(QCloseEvent *event)
{
    QWidget::closeEvent(event);
    Q_EMIT left();
}

} // namespace clipwren
