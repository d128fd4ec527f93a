#pragma once

#include "platform/media/MediaPlayer.h"
#include "ui/player/PlayerControls.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <chrono>
#include <optional>

namespace clipwren {

class Label;
class VideoOutput;

/// A player's pictures with its controls floating over them, and what the keyboard does while the
/// pane has focus: Space plays and pauses, Left and Right jump by 5 s, Up and Down change the
/// volume, M mutes, F changes to full screen and back, Escape back.
///
/// The controls go when the video plays and the pointer rests. In the place of a stream that
/// failed, its sentence is shown. At most one pane shows a player at a time.
class PlayerPane : public QWidget {
    Q_OBJECT
public:
    struct Options {
        PlayerControls::FullScreen fullScreen = PlayerControls::FullScreen::None;
        /// Of the corners, in logical pixels.
        double radius = 0;
        std::chrono::milliseconds hideControlsAfter{2500};
    };

    explicit PlayerPane(const Options &options, QWidget *parent = nullptr);
    ~PlayerPane() override;

    /// Shows another player, which somebody else owns; null shows black. A player may be destroyed
    /// while it is shown.
    void setPlayer(MediaPlayer *player);
    MediaPlayer *player() const { return m_player; }

Q_SIGNALS:
    /// The user pulls the picture somewhere else.
    void dragged();
    /// The user wants to change to full screen, or back; also when a pane that is a window of its
    /// own is closed.
    void fullScreenToggled();
    /// The user is about to jump to another position.
    void jumped();

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QWidget *makeFailure();
    void paintPicture(QPainter &painter);
    void followPlayer();
    void wakeControls();
    void hideControlsAtRest();

    Options m_options;
    QPointer<MediaPlayer> m_player;
    QPointer<VideoOutput> m_output;
    Label *m_failureText;
    QWidget *m_failure;
    std::optional<QPoint> m_pressed; ///< where, until the picture is dragged away
    PlayerControls *m_controls;
    QTimer m_rest;
};

} // namespace clipwren
