// Compares the time from a seek to its frame drawn through our player with bare libmpv, which draws
// the same into memory without widgets, a queue or an event loop. The pairs run in turn, so that a
// busy machine slows both sides alike; the medians count. Then plays 1080p at 60 frames a second in
// the place of the detail view, and says what showing it costs beside decoding it.

#include "platform/media/PlayerModule.h"
#include "platform/media/VideoOutput.h"
#include "ui/components/Theme.h"
#include "ui/player/NumberedVideo.h"
#include "ui/player/SafeVideoPlayer.h"

#include <QApplication>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <clocale>
#include <condition_variable>
#include <cstdio>
#include <ctime>
#include <mpv/client.h>
#include <mpv/render.h>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

namespace {

using namespace clipwren;
using test::FrameNumber;
using Clock = std::chrono::steady_clock;

constexpr double seekBound = 1.2;
constexpr double coresBound = 0.5;
constexpr int rounds = 200;
constexpr QSize pictureSize(640, 360);
constexpr QSize detailSize(704, 320);
constexpr std::chrono::seconds playTime(4);

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

double milliseconds(Clock::duration duration)
{
    return std::chrono::duration<double, std::milli>(duration).count();
}

/// Processor time used so far.
double cpuMilliseconds(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

class OurPlayer {
public:
    OurPlayer()
    {
        VideoOutput *const output = m_player->videoOutput();
        output->setSize(pictureSize);
        QObject::connect(output, &VideoOutput::pictureChanged, output, [this, output] {
            m_shown = test::readFrameNumber(output->picture());
            m_drawnAt = Clock::now();
        });
        m_player->load(test::numberedVideo(1));
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
    std::optional<FrameNumber> m_shown;
    Clock::time_point m_drawnAt;
};

class BareMpv {
public:
    BareMpv()
    {
        m_mpv = mpv_create();
        for (const auto &[name, value] :
             {std::pair{"vo", "libmpv"}, std::pair{"pause", "yes"}, std::pair{"config", "no"},
              std::pair{"keep-open", "yes"}, std::pair{"video-timing-offset", "0"},
              std::pair{"hwdec", "no"}})
            mpv_set_option_string(m_mpv, name, value);
        mpv_initialize(m_mpv);
        char api[] = MPV_RENDER_API_TYPE_SW;
        mpv_render_param parameters[]{{MPV_RENDER_PARAM_API_TYPE, api},
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
        mpv_render_context_free(m_renderer);
        mpv_terminate_destroy(m_mpv);
    }
    BareMpv(const BareMpv &) = delete;
    BareMpv &operator=(const BareMpv &) = delete;

    double seek(int frame)
    {
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
            draw();
            shown = test::readFrameNumber(m_picture);
            m_drawnAt = Clock::now();
        }
    }

    void draw()
    {
        int size[]{m_picture.width(), m_picture.height()};
        char format[] = "bgr0";
        auto stride = static_cast<std::size_t>(m_picture.bytesPerLine());
        int wait = 0;
        mpv_render_param parameters[]{{MPV_RENDER_PARAM_SW_SIZE, size},
                                      {MPV_RENDER_PARAM_SW_FORMAT, format},
                                      {MPV_RENDER_PARAM_SW_STRIDE, &stride},
                                      {MPV_RENDER_PARAM_SW_POINTER, m_picture.bits()},
                                      {MPV_RENDER_PARAM_BLOCK_FOR_TARGET_TIME, &wait},
                                      {MPV_RENDER_PARAM_INVALID, nullptr}};
        mpv_render_context_render(m_renderer, parameters);
    }

    mpv_handle *m_mpv = nullptr;
    mpv_render_context *m_renderer = nullptr;
    QImage m_picture{pictureSize, QImage::Format_RGB32};
    Clock::time_point m_drawnAt;
    std::mutex m_lock;
    std::condition_variable m_changed;
    bool m_awake = false;
};

void runEventLoop(std::chrono::milliseconds time)
{
    QEventLoop loop;
    QTimer::singleShot(time, &loop, &QEventLoop::quit);
    loop.exec();
}

bool compareSeeks()
{
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
    std::printf("%-36s %.2f (bound %.2f)  %.3f ms against %.3f ms\n", "seek to its frame", ratio,
                seekBound, median(oursTimes), median(bareTimes));
    return ratio <= seekBound;
}

/// The processor time of playing the film, in cores, once it plays.
double coresWhilePlaying(MediaPlayer &player)
{
    player.seek(0, {});
    player.play();
    runEventLoop(std::chrono::milliseconds(500));
    const double before = cpuMilliseconds(CLOCK_PROCESS_CPUTIME_ID);
    runEventLoop(playTime);
    const double used = cpuMilliseconds(CLOCK_PROCESS_CPUTIME_ID) - before;
    player.pause();
    return used / std::chrono::duration<double, std::milli>(playTime).count();
}

bool measureShowing()
{
    PlayerModule module;
    MediaPlayer *player = nullptr;
    SafeVideoPlayer view([&] {
        auto made = module.makePlayer();
        player = made.get();
        return made;
    });
    view.resize(detailSize);
    view.show();
    view.setUrl(QUrl::fromLocalFile(QStringLiteral(CLIPWREN_BENCH_FILM)));
    runEventLoop(std::chrono::seconds(1));

    int pictures = 0;
    QObject::connect(player->videoOutput(), &VideoOutput::pictureChanged, &view,
                     [&] { ++pictures; });
    const double before = cpuMilliseconds(CLOCK_THREAD_CPUTIME_ID);
    const double shown = coresWhilePlaying(*player);
    const double perPicture =
        (cpuMilliseconds(CLOCK_THREAD_CPUTIME_ID) - before) / std::max(pictures, 1);
    std::printf("%-36s %.2f ms  (%d pictures)\n", "user-interface thread per picture", perPicture,
                pictures);

    view.setUpdatesEnabled(false);
    player->videoOutput()->setSize({});
    const double decoded = coresWhilePlaying(*player);
    std::printf("%-36s %.2f cores (bound %.2f)  %.2f shown, %.2f decoded only\n",
                "showing 1080p60 beyond decoding", shown - decoded, coresBound, shown, decoded);
    return shown - decoded <= coresBound;
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    Theme theme;
    const bool seeks = compareSeeks();
    const bool showing = measureShowing();
    return seeks && showing ? 0 : 1;
}
