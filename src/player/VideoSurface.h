#pragma once

#include <QOpenGLWidget>

#include <memory>
#include <mpv/render.h>

namespace clipwren {

class MpvInstance;

/// Shows the pictures of one mpv core, fitted into the widget, black around them.
///
/// Survives being moved to another window, where it gets another OpenGL context.
class VideoSurface : public QOpenGLWidget {
    Q_OBJECT

public:
    explicit VideoSurface(std::shared_ptr<MpvInstance> mpv, QWidget *parent = nullptr);
    ~VideoSurface() override;

protected:
    void initializeGL() override;
    void paintGL() override;

private:
    void updateIfThereIsANewPicture();
    void releaseContext();
    /// mpv goes on only when its picture was taken, even one that is not to be seen.
    void takePicture(QSize pixels, bool skip);

    std::shared_ptr<MpvInstance> m_mpv;
    // Null before the first paint, between two windows, and when another surface shows this core.
    mpv_render_context *m_context = nullptr;
};

} // namespace clipwren
