#pragma once

#include "platform/media/MediaPlayer.h"

#include <QPointer>
#include <QUrl>
#include <QWidget>

#include <chrono>
#include <memory>

namespace clipwren {

class PlayerPane;

/// Plays one file, in its place or in full screen.
///
/// Shows the first frame until somebody plays it. The picture can be dragged into other programs,
/// which get the file. Hidden, it pauses, leaves full screen and keeps its position. Hidden behind
/// another window or minimised, it plays on.
class SafeVideoPlayer : public QWidget {
    Q_OBJECT
public:
    struct Options {
        /// Of the corners, in logical pixels.
        double radius = 14;
        std::chrono::milliseconds hideControlsAfter{2500};
    };

    /// The factory is asked with the first file. What it needs must outlive the view.
    explicit SafeVideoPlayer(MediaPlayerFactory makePlayer, QWidget *parent = nullptr);
    SafeVideoPlayer(MediaPlayerFactory makePlayer, const Options &options,
                    QWidget *parent = nullptr);
    ~SafeVideoPlayer() override;

    /// Loads the file unless it is the one that is loaded: then position and playing stay. An empty
    /// address closes the file.
    void setUrl(const QUrl &url);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void dragFile();
    void enterFullScreen();
    void leaveFullScreen();

    MediaPlayerFactory m_makePlayer;
    Options m_options;
    std::unique_ptr<MediaPlayer> m_player;
    PlayerPane *m_pane;
    // A window of its own; null while the video is in its place.
    QPointer<PlayerPane> m_fullScreen;
};

} // namespace clipwren
