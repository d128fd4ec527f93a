#include "player/VideoRenderer.h"

#include "player/LowPriority.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace clipwren {
namespace {

/// mpv draws fastest into lines that start at multiples of this.
constexpr std::size_t alignment = 64;
constexpr std::size_t bytesPerPixel = 4;

QImage makeImage(QSize size)
{
    const auto width = static_cast<std::size_t>(size.width());
    const auto height = static_cast<std::size_t>(size.height());
    const std::size_t stride = (width * bytesPerPixel + alignment - 1) / alignment * alignment;
    void *const pixels = std::aligned_alloc(alignment, stride * height);
    if (!pixels)
        return {};
    return QImage(static_cast<uchar *>(pixels), size.width(), size.height(),
                  static_cast<qsizetype>(stride), QImage::Format_RGB32, std::free, pixels);
}

/// Draws the newest picture; with a null image it is taken and dropped.
bool render(mpv_render_context *context, QImage &image)
{
    int size[]{image.width(), image.height()};
    char format[] = "bgr0";
    auto stride = static_cast<std::size_t>(image.bytesPerLine());
    int wait = 0;
    int skip = image.isNull() ? 1 : 0;
    mpv_render_param parameters[]{{MPV_RENDER_PARAM_SW_SIZE, size},
                                  {MPV_RENDER_PARAM_SW_FORMAT, format},
                                  {MPV_RENDER_PARAM_SW_STRIDE, &stride},
                                  {MPV_RENDER_PARAM_SW_POINTER, image.bits()},
                                  {MPV_RENDER_PARAM_BLOCK_FOR_TARGET_TIME, &wait},
                                  {MPV_RENDER_PARAM_SKIP_RENDERING, &skip},
                                  {MPV_RENDER_PARAM_INVALID, nullptr}};
    if (mpv_render_context_render(context, parameters) < 0 || skip)
        return false;
    // mpv leaves the fourth byte of a pixel undefined; Qt takes it for opacity.
    for (int y = 0; y < image.height(); ++y) {
        auto *const line = reinterpret_cast<QRgb *>(image.scanLine(y));
        std::for_each_n(line, image.width(), [](QRgb &pixel) { pixel |= 0xff000000; });
    }
    return true;
}

} // namespace

VideoRenderer::VideoRenderer(mpv_render_context *context, bool lowPriority) : m_context(context)
{
    mpv_render_context_set_update_callback(
        m_context, [](void *self) { static_cast<VideoRenderer *>(self)->requestPicture(); }, this);
    m_thread = std::jthread([this, lowPriority](const std::stop_token &stop) {
        if (lowPriority)
            lowerThreadPriority();
        drawPictures(stop);
    });
}

VideoRenderer::~VideoRenderer()
{
    // After this returns, no callback runs any more.
    mpv_render_context_set_update_callback(m_context, nullptr, nullptr);
}

void VideoRenderer::setSize(QSize pixels)
{
    {
        const std::lock_guard lock(m_lock);
        if (m_size == pixels)
            return;
        m_size = pixels;
        ++m_revision;
    }
    requestPicture();
}

void VideoRenderer::setBlank(bool blank)
{
    {
        const std::lock_guard lock(m_lock);
        if (m_isBlank == blank)
            return;
        m_isBlank = blank;
        ++m_revision;
        m_picture = {};
    }
    if (blank)
        Q_EMIT pictureChanged();
    else
        requestPicture();
}

QImage VideoRenderer::picture() const
{
    const std::lock_guard lock(m_lock);
    return m_picture;
}

void VideoRenderer::requestPicture()
{
    const std::lock_guard lock(m_lock);
    m_isRequested = true;
    m_pictureRequested.notify_one();
}

void VideoRenderer::drawPictures(const std::stop_token &stop)
{
    // What was shown before becomes the next one, unless somebody still paints it.
    QImage image;
    std::unique_lock lock(m_lock);
    while (m_pictureRequested.wait(lock, stop, [this] { return m_isRequested; })) {
        m_isRequested = false;
        const quint64 revision = m_revision;
        const QSize size = m_isBlank ? QSize() : m_size;
        lock.unlock();
        if (image.size() != size || !image.isDetached())
            image = size.isEmpty() ? QImage() : makeImage(size);
        const bool isDrawn = render(m_context, image);
        lock.lock();
        if (!isDrawn || revision != m_revision)
            continue;
        std::swap(m_picture, image);
        if (!std::exchange(m_isAnnounced, true))
            QMetaObject::invokeMethod(this, &VideoRenderer::announcePicture, Qt::QueuedConnection);
    }
}

void VideoRenderer::announcePicture()
{
    {
        const std::lock_guard lock(m_lock);
        m_isAnnounced = false;
    }
    Q_EMIT pictureChanged();
}

} // namespace clipwren
