#pragma once

#include <QUrl>
#include <QWidget>

#include <functional>

namespace clipwren {

/// Plays one file, with controls of its own. Rounds its own corners, as nothing can be clipped
/// that shows moving pictures.
///
/// Never starts playing by itself. Playing stops when the view is hidden or destroyed.
class VideoPlayerView : public QWidget {
    Q_OBJECT

public:
    /// Of the corners, in logical pixels.
    static constexpr qreal radius = 14;

    using Factory = std::function<VideoPlayerView *(QWidget *parent)>;

    using QWidget::QWidget;

    /// Loads the file unless it is the one that is loaded: then position and playing stay.
    virtual void setUrl(const QUrl &url) = 0;
};

} // namespace clipwren
