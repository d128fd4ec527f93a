#pragma once

#include "platform/media/VideoOutput.h"

#include <condition_variable>
#include <mpv/render.h>
#include <mutex>
#include <thread>

namespace clipwren {

/// Draws the pictures of one mpv core in memory, on a thread of its own.
///
/// mpv goes on only when its pictures are taken, so the thread takes each one, also those that are
/// not to be seen.
class VideoRenderer : public VideoOutput {
    Q_OBJECT

public:
    /// The context uses mpv's software renderer and must outlive the renderer. With `lowPriority`
    /// the thread leaves the processor to others.
    VideoRenderer(mpv_render_context *context, bool lowPriority);
    /// Waits for the picture that is being drawn.
    ~VideoRenderer() override;

    void setSize(QSize pixels) override;
    QSize size() const override { return m_size; }
    QImage picture() const override;

    /// True from a load to the new stream's first picture: mpv keeps the last picture of the old
    /// stream, which must not be shown any more.
    void setBlank(bool blank);

private:
    void requestPicture();
    void drawPictures(const std::stop_token &stop);
    void announcePicture();

    mpv_render_context *m_context;

    mutable std::mutex m_lock;
    std::condition_variable_any m_pictureRequested;
    // All guarded by the lock.
    bool m_isRequested = false;
    bool m_isBlank = true;
    QSize m_size;
    // Counts changes of the two above; a picture that was begun before the last one is dropped.
    quint64 m_revision = 0;
    QImage m_picture;
    bool m_isAnnounced = false;

    std::jthread m_thread; // last, so that it ends first
};

} // namespace clipwren
