#include "player/VideoSurface.h"

#include "player/MpvInstance.h"

#include <QLoggingCategory>
#include <QOpenGLContext>
#include <QOpenGLFunctions>

#include <chrono>
#include <future>
#include <mpv/render_gl.h>
#include <utility>

namespace clipwren {
namespace {

void *functionOfCurrentContext(void *, const char *name)
{
    return reinterpret_cast<void *>(QOpenGLContext::currentContext()->getProcAddress(name));
}

} // namespace

VideoSurface::VideoSurface(std::shared_ptr<MpvInstance> mpv, QWidget *parent)
    : QOpenGLWidget(parent), m_mpv(std::move(mpv))
{
    // The picture covers everything, so that nothing below is painted for it.
    setAttribute(Qt::WA_OpaquePaintEvent);
    connect(m_mpv.get(), &MpvInstance::blankChanged, this, qOverload<>(&QWidget::update));
}

VideoSurface::~VideoSurface()
{
    releaseContext();
}

void VideoSurface::initializeGL()
{
    // Comes again with another context when the surface moves to another window.
    connect(context(), &QOpenGLContext::aboutToBeDestroyed, this, &VideoSurface::releaseContext);

    mpv_opengl_init_params gl{functionOfCurrentContext, nullptr};
    char api[] = MPV_RENDER_API_TYPE_OPENGL;
    mpv_render_param parameters[]{{MPV_RENDER_PARAM_API_TYPE, api},
                                  {MPV_RENDER_PARAM_OPENGL_INIT_PARAMS, &gl},
                                  {MPV_RENDER_PARAM_INVALID, nullptr}};
    if (const int error = mpv_render_context_create(&m_context, m_mpv->handle(), parameters);
        error < 0) {
        m_context = nullptr;
        qWarning("Cannot draw the video: %s", mpv_error_string(error));
        return;
    }
    mpv_render_context_set_update_callback(
        m_context,
        [](void *self) {
            QMetaObject::invokeMethod(static_cast<VideoSurface *>(self),
                                      &VideoSurface::updateIfThereIsANewPicture,
                                      Qt::QueuedConnection);
        },
        this);
    m_mpv->useSurface(true);
}

void VideoSurface::updateIfThereIsANewPicture()
{
    if (m_context && (mpv_render_context_update(m_context) & MPV_RENDER_UPDATE_FRAME) != 0)
        update();
}

void VideoSurface::releaseContext()
{
    if (!m_context)
        return;
    makeCurrent();
    // Before the context goes, as mpv would otherwise switch the video track off for good. It
    // cannot answer while it waits for its picture to be taken.
    const auto left = std::async(std::launch::async, [this] { m_mpv->useSurface(false); });
    while (left.wait_for(std::chrono::milliseconds(1)) != std::future_status::ready)
        takePicture({}, true);
    // After this returns, no callback runs any more.
    mpv_render_context_set_update_callback(m_context, nullptr, nullptr);
    mpv_render_context_free(std::exchange(m_context, nullptr));
    doneCurrent();
}

void VideoSurface::paintGL()
{
    QOpenGLFunctions *const gl = context()->functions();
    gl->glClearColor(0, 0, 0, 1);
    gl->glClear(GL_COLOR_BUFFER_BIT);
    if (m_context)
        takePicture(size() * devicePixelRatio(), m_mpv->isBlank());
}

void VideoSurface::takePicture(QSize pixels, bool skip)
{
    mpv_opengl_fbo target{static_cast<int>(defaultFramebufferObject()), pixels.width(),
                          pixels.height(), 0};
    int upsideDown = 1;
    int wait = 0;
    int skipDrawing = skip ? 1 : 0;
    mpv_render_param parameters[]{{MPV_RENDER_PARAM_OPENGL_FBO, &target},
                                  {MPV_RENDER_PARAM_FLIP_Y, &upsideDown},
                                  {MPV_RENDER_PARAM_BLOCK_FOR_TARGET_TIME, &wait},
                                  {MPV_RENDER_PARAM_SKIP_RENDERING, &skipDrawing},
                                  {MPV_RENDER_PARAM_INVALID, nullptr}};
    mpv_render_context_render(m_context, parameters);
}

} // namespace clipwren
