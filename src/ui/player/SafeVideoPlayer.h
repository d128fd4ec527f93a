#pragma once

#include "ui/shell/VideoPlayerView.h"

#include <chrono>
#include <memory>

namespace clipwren {

class FullScreenPlayer;
class MediaPlayer;
class PlayerModule;
class PlayerPane;

/// Plays one file, in its place or in full screen.
///
/// Shows the first frame until somebody plays it. The player module is loaded with the first
/// file. Hidden, it pauses, leaves full screen and keeps its position. An empty address lets go
/// of the file.
class SafeVideoPlayer : public VideoPlayerView {
    Q_OBJECT

public:
    struct Options {
        /// Of the corners, in logical pixels.
        double radius = VideoPlayerView::radius;
        std::chrono::milliseconds hideControlsAfter{2500};
    };

    /// The module must outlive the view.
    explicit SafeVideoPlayer(PlayerModule &module, QWidget *parent = nullptr);
    SafeVideoPlayer(PlayerModule &module, const Options &options, QWidget *parent = nullptr);
    ~SafeVideoPlayer() override;

    void setUrl(const QUrl &url) override;

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void enterFullScreen();
    void leaveFullScreen();

    PlayerModule &m_module;
    Options m_options;
    std::unique_ptr<MediaPlayer> m_player;
    PlayerPane *m_pane;
    FullScreenPlayer *m_fullScreen = nullptr;
};

} // namespace clipwren
