#pragma once

#include "platform/media/MediaPlayer.h"
#include "ui/player/PlayerControls.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <chrono>

namespace clipwren {

class Label;
class PlayerModule;
class VideoPane;

/// A video with its controls floating over it, and what the keyboard does while it has focus:
/// Space plays and pauses, Left and Right jump by 5 s, Up and Down change the volume, M mutes, F
/// changes to full screen and back, Escape back.
///
/// The controls go when the video plays and the pointer rests. In the place of a stream that
/// failed, its sentence is shown. Asks for a player only; never makes one.
class PlayerPane : public QWidget {
    Q_OBJECT

public:
    struct Options {
        PlayerControls::FullScreen fullScreen = PlayerControls::FullScreen::None;
        /// Of the corners, in logical pixels.
        double radius = 0;
        std::chrono::milliseconds hideControlsAfter{2500};
    };

    /// The module must outlive the pane.
    PlayerPane(PlayerModule &module, const Options &options, QWidget *parent = nullptr);
    ~PlayerPane() override;

    /// Shows another player, which somebody else owns; null shows black. A player that goes is
    /// let go of.
    void setPlayer(MediaPlayer *player);
    MediaPlayer *player() const { return m_player; }

Q_SIGNALS:
    /// The user wants to change to full screen, or back.
    void fullScreenToggled();

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QWidget *makeFailure();
    void drawOutline();
    void followPlayer();
    void wakeControls();
    void hideControlsAtRest();

    Options m_options;
    QPointer<MediaPlayer> m_player;
    VideoPane *m_video;
    Label *m_failureText;
    QWidget *m_failure;
    PlayerControls *m_controls;
    QTimer m_rest;
};

} // namespace clipwren
