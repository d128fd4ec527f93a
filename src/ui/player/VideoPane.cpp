#include "ui/player/VideoPane.h"

#include "ui/player/CornerFrame.h"
#include "ui/player/PlayerModule.h"

#include <QPainter>

#include <utility>

namespace clipwren {

VideoPane::VideoPane(PlayerModule &module, QWidget *parent)
    : QWidget(parent), m_module(module), m_frame(new CornerFrame(this))
{
}

void VideoPane::setPlayer(MediaPlayer *player)
{
    if (m_player == player && (player || !m_surface))
        return;
    if (m_player)
        m_player->disconnect(this);
    m_player = player;
    delete std::exchange(m_surface, nullptr);
    if (player) {
        connect(player, &QObject::destroyed, this, [this] { setPlayer(nullptr); });
        m_surface = m_module.makeSurface(*player, this);
        m_surface->setGeometry(rect());
        m_surface->lower();
        m_surface->show();
    }
    update();
}

void VideoPane::resizeEvent(QResizeEvent *)
{
    m_frame->setGeometry(rect());
    if (m_surface)
        m_surface->setGeometry(rect());
}

void VideoPane::paintEvent(QPaintEvent *)
{
    QPainter(this).fillRect(rect(), Qt::black);
}

} // namespace clipwren
