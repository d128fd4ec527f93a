#pragma once

#include "platform/media/MediaPlayer.h"
#include "ui/components/Icon.h"

#include <QPointer>
#include <QWidget>

#include <cstdint>

namespace clipwren {

class Button;
class Label;
class ThinSlider;
class TimeButton;

/// The translucent bar that operates a player: play, position, time left or length, volume and
/// full screen. Leaves parts out where it is narrow.
///
/// Whoever shows it decides when it is seen, and hands it the keys.
class PlayerControls : public QWidget {
    Q_OBJECT
public:
    enum class FullScreen : std::uint8_t { None, CanEnter, CanLeave };

    explicit PlayerControls(FullScreen fullScreen, QWidget *parent = nullptr);

    /// Operates another player, which somebody else owns; null leaves nothing to operate. A
    /// player may be destroyed while it is operated.
    void setPlayer(MediaPlayer *player);

    /// Does what a key stands for; false when it stands for nothing here.
    bool pressKey(int key, bool repeated);
    /// True while it should not vanish: it is dragged, pointed at or has the focus.
    bool isInUse() const;
    /// The width it likes to have over a video of a width, in logical pixels.
    static int widthOver(int videoWidth);

    QSize sizeHint() const override;

Q_SIGNALS:
    /// The button or its key was pressed.
    void fullScreenToggled();
    /// The user is about to jump to another position.
    void jumped();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    Button *addButton(Icon icon);
    void leaveOutWhatDoesNotFit();
    void render();
    void renderTimes();
    void renderVolume();
    bool willPlay() const;

    void togglePlaying();
    void seek(double seconds);
    void endDrag();
    void toggleMuted();
    void setVolume(double volume);

    QPointer<MediaPlayer> m_player;
    FullScreen m_fullScreen;
    // The player was playing when the drag of the position began.
    bool m_resumeAfterSeek = false;
    bool m_showsTimeLeft = false;

    Button *m_play;
    Label *m_elapsed;
    ThinSlider *m_position;
    TimeButton *m_end;
    Button *m_mute;
    ThinSlider *m_volume;
    Button *m_toggleFullScreen;
};

} // namespace clipwren
