#pragma once

#include "platform/media/MediaPlayer.h"

#include <QPointer>
#include <QWidget>

namespace clipwren {

class CornerFrame;
class PlayerModule;

/// A black pane that shows the pictures of a player, with round corners where wanted.
///
/// Controls are made its children; they float over the picture.
class VideoPane : public QWidget {
    Q_OBJECT

public:
    /// The module must outlive the pane.
    explicit VideoPane(PlayerModule &module, QWidget *parent = nullptr);

    /// Shows another player, which somebody else owns; null shows black. A player that goes is
    /// let go of.
    void setPlayer(MediaPlayer *player);
    MediaPlayer *player() const { return m_player; }

    /// Its radius, backdrop and outline can be set.
    CornerFrame &frame() { return *m_frame; }

protected:
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    PlayerModule &m_module;
    QPointer<MediaPlayer> m_player;
    QWidget *m_surface = nullptr;
    CornerFrame *m_frame;
};

} // namespace clipwren
