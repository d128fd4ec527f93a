// Compares the time from a seek to its frame drawn through our player and surface with bare libmpv,
// which draws the same into a window of its own, without widgets, a queue or an event loop. What
// the window system then does with the drawn frame counts on neither side. The pairs run in turn,
// so that a busy machine slows both sides alike; the medians count.

#include "ui/player/NumberedVideo.h"
#include "ui/player/PlayerModule.h"

#include <QApplication>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QOpenGLWidget>
#include <QWindow>

#include <algorithm>
#include <chrono>
#include <clocale>
#include <condition_variable>
#include <cstdio>
#include <mpv/client.h>
#include <mpv/render_gl.h>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

namespace {

using namespace clipwren;
using test::FrameNumber;
using Clock = std::chrono::steady_clock;

constexpr double bound = 1.2;
constexpr int rounds = 200;
constexpr QSize pictureSize(640, 360);

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

double milliseconds(Clock::duration duration)
{
    return std::chrono::duration<double, std::milli>(duration).count();
}

class OurPlayer {
public:
    OurPlayer()
    {
        m_player->load(test::numberedVideo(1));
        m_surface.reset(qobject_cast<QOpenGLWidget *>(m_module.makeSurface(*m_player, nullptr)));
        m_surface->resize(pictureSize);
        QObject::connect(m_surface.get(), &QOpenGLWidget::aboutToCompose, m_surface.get(), [this] {
            m_shown = test::readFrameNumber(test::drawnPicture(*m_surface));
            m_drawnAt = Clock::now();
        });
        m_surface->show();
        waitFor(0);
    }

    double seek(int frame)
    {
        const auto start = Clock::now();
        m_player->seek(frame / test::framesPerSecond, {});
        waitFor(frame);
        return milliseconds(m_drawnAt - start);
    }

private:
    void waitFor(int frame)
    {
        while (m_shown != FrameNumber{1, frame})
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    PlayerModule m_module;
    std::unique_ptr<MediaPlayer> m_player = m_module.makePlayer();
    std::unique_ptr<QOpenGLWidget> m_surface;
    std::optional<FrameNumber> m_shown;
    Clock::time_point m_drawnAt;
};

class BareMpv {
public:
    BareMpv()
    {
        m_window.setSurfaceType(QSurface::OpenGLSurface);
        m_window.resize(pictureSize);
        m_window.show();
        m_context.create();
        m_context.makeCurrent(&m_window);

        m_mpv = mpv_create();
        for (const auto &[name, value] :
             {std::pair{"vo", "libmpv"}, std::pair{"pause", "yes"}, std::pair{"config", "no"},
              std::pair{"keep-open", "yes"}, std::pair{"video-timing-offset", "0"},
              std::pair{"hwdec", "auto-copy"}})
            mpv_set_option_string(m_mpv, name, value);
        mpv_initialize(m_mpv);
        mpv_opengl_init_params gl{[](void *, const char *name) {
                                      return reinterpret_cast<void *>(
                                          QOpenGLContext::currentContext()->getProcAddress(name));
                                  },
                                  nullptr};
        char api[] = MPV_RENDER_API_TYPE_OPENGL;
        mpv_render_param parameters[]{{MPV_RENDER_PARAM_API_TYPE, api},
                                      {MPV_RENDER_PARAM_OPENGL_INIT_PARAMS, &gl},
                                      {MPV_RENDER_PARAM_INVALID, nullptr}};
        mpv_render_context_create(&m_renderer, m_mpv, parameters);
        mpv_render_context_set_update_callback(
            m_renderer, [](void *self) { static_cast<BareMpv *>(self)->wake(); }, this);
        const QByteArray file = test::numberedVideo(1).toLocalFile().toUtf8();
        command({"loadfile", file.constData(), nullptr});
        waitFor(0);
    }

    ~BareMpv()
    {
        m_context.makeCurrent(&m_window);
        mpv_render_context_free(m_renderer);
        m_context.doneCurrent();
        mpv_terminate_destroy(m_mpv);
    }

    double seek(int frame)
    {
        m_context.makeCurrent(&m_window);
        const auto start = Clock::now();
        const QByteArray target = QByteArray::number(frame / test::framesPerSecond, 'f', 6);
        command({"seek", target.constData(), "absolute+exact", nullptr});
        waitFor(frame);
        return milliseconds(m_drawnAt - start);
    }

private:
    void command(std::vector<const char *> words) { mpv_command(m_mpv, words.data()); }

    void wake()
    {
        {
            const std::lock_guard lock(m_lock);
            m_awake = true;
        }
        m_changed.notify_one();
    }

    void waitFor(int frame)
    {
        std::optional<FrameNumber> shown;
        while (shown != FrameNumber{1, frame}) {
            {
                std::unique_lock lock(m_lock);
                m_changed.wait(lock, [this] { return std::exchange(m_awake, false); });
            }
            if (mpv_render_context_update(m_renderer) & MPV_RENDER_UPDATE_FRAME) {
                shown = test::readFrameNumber(draw());
                m_drawnAt = Clock::now();
                m_context.swapBuffers(&m_window);
            }
        }
    }

    QImage draw()
    {
        mpv_opengl_fbo target{0, pictureSize.width(), pictureSize.height(), 0};
        int upsideDown = 1;
        int wait = 0;
        mpv_render_param parameters[]{{MPV_RENDER_PARAM_OPENGL_FBO, &target},
                                      {MPV_RENDER_PARAM_FLIP_Y, &upsideDown},
                                      {MPV_RENDER_PARAM_BLOCK_FOR_TARGET_TIME, &wait},
                                      {MPV_RENDER_PARAM_INVALID, nullptr}};
        mpv_render_context_render(m_renderer, parameters);
        QImage picture(pictureSize, QImage::Format_RGBA8888);
        m_context.functions()->glReadPixels(0, 0, picture.width(), picture.height(), GL_RGBA,
                                            GL_UNSIGNED_BYTE, picture.bits());
        return picture.mirrored();
    }

    QWindow m_window;
    QOpenGLContext m_context;
    mpv_handle *m_mpv = nullptr;
    mpv_render_context *m_renderer = nullptr;
    Clock::time_point m_drawnAt;
    std::mutex m_lock;
    std::condition_variable m_changed;
    bool m_awake = false;
};

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    OurPlayer ours;
    BareMpv bare;
    std::vector<double> oursTimes;
    std::vector<double> bareTimes;
    for (int round = 0; round < rounds; ++round) {
        // Jumps back and forth over the whole video, never to the frame that is shown.
        const int frame = (1 + round * 77) % test::frameCount;
        oursTimes.push_back(ours.seek(frame));
        bareTimes.push_back(bare.seek(frame));
    }
    const double ratio = median(oursTimes) / median(bareTimes);
    std::printf("%-24s %.2f (bound %.2f)  %.3f ms against %.3f ms\n", "seek to its frame", ratio,
                bound, median(oursTimes), median(bareTimes));
    return ratio <= bound ? 0 : 1;
}
