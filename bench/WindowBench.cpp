// Compares the window with an empty one: time from the start to the first frame, memory and
// wake-ups while idle. Needs an X display, the tools, and home folders of its own (see
// bench/window). Pairs run in turn; the medians count. Ends with 1 where a bound is missed.

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <spawn.h>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>
#include <xcb/xcb.h>

extern char **environ;

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/// Sees on the screen when a program has drawn its window.
class Screen {
public:
    Screen() : m_connection(xcb_connect(nullptr, nullptr))
    {
        if (xcb_connection_has_error(m_connection) != 0)
            throw std::runtime_error("no X display");
        m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
    }
    Screen(const Screen &) = delete;
    Screen &operator=(const Screen &) = delete;
    ~Screen() { xcb_disconnect(m_connection); }

    /// A pixel in the middle of where windows open is no longer the black of the bare screen.
    bool isDrawn() const
    {
        const auto cookie =
            xcb_get_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, m_root, 700, 600, 1, 1, ~0U);
        const std::unique_ptr<xcb_get_image_reply_t, decltype(&std::free)> image(
            xcb_get_image_reply(m_connection, cookie, nullptr), &std::free);
        if (!image)
            return false;
        const std::uint8_t *pixel = xcb_get_image_data(image.get());
        return pixel[0] != 0 || pixel[1] != 0 || pixel[2] != 0;
    }

private:
    xcb_connection_t *m_connection;
    xcb_window_t m_root = 0;
};

/// All threads' voluntary switches so far: each is a wait that something ended.
long wakeUps(pid_t process)
{
    long count = 0;
    const std::string tasks = "/proc/" + std::to_string(process) + "/task";
    for (const auto &task : std::filesystem::directory_iterator(tasks)) {
        std::ifstream status(task.path() / "status");
        for (std::string line; std::getline(status, line);) {
            if (line.rfind("voluntary_ctxt_switches:", 0) == 0)
                count += std::stol(line.substr(line.find(':') + 1));
        }
    }
    return count;
}

double residentMegabytes(pid_t process)
{
    std::ifstream status("/proc/" + std::to_string(process) + "/status");
    for (std::string line; std::getline(status, line);) {
        if (line.rfind("VmRSS:", 0) == 0)
            return std::stod(line.substr(6)) / 1024;
    }
    return 0;
}

struct Figures {
    std::vector<double> startMilliseconds;
    std::vector<double> megabytes;
    std::vector<double> wakeUpsInFiveSeconds;
};

void measure(const Screen &screen, const char *program, bool idle, Figures &figures)
{
    while (screen.isDrawn())
        std::this_thread::sleep_for(5ms);
    const auto start = Clock::now();
    pid_t process = 0;
    const char *const arguments[] = {program, nullptr};
    if (posix_spawn(&process, program, nullptr, nullptr, const_cast<char *const *>(arguments),
                    environ)
        != 0)
        throw std::runtime_error(std::string("cannot start ") + program);
    while (!screen.isDrawn())
        std::this_thread::sleep_for(200us);
    figures.startMilliseconds.push_back(
        std::chrono::duration<double, std::milli>(Clock::now() - start).count());
    if (idle) {
        std::this_thread::sleep_for(45s);
        const long before = wakeUps(process);
        std::this_thread::sleep_for(5s);
        figures.wakeUpsInFiveSeconds.push_back(static_cast<double>(wakeUps(process) - before));
        figures.megabytes.push_back(residentMegabytes(process));
    }
    kill(process, SIGTERM);
    waitpid(process, nullptr, 0);
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 3) {
        std::fputs("Usage: clipwren_window_bench CLIPWREN EMPTY-WINDOW\n", stderr);
        return 2;
    }
    const Screen screen;
    Figures ours;
    Figures empty;
    for (int round = 0; round < 15; ++round) {
        measure(screen, argv[1], round == 0, ours);
        measure(screen, argv[2], round == 0, empty);
    }
    bool withinBounds = true;
    const auto compare = [&](const char *name, const std::vector<double> &a,
                             const std::vector<double> &b, double bound) {
        const double ratio = median(a) / median(b);
        std::printf("%-22s %.2f (bound %.2f)  %.1f against %.1f\n", name, ratio, bound, median(a),
                    median(b));
        withinBounds = withinBounds && ratio <= bound;
    };
    compare("start, ms", ours.startMilliseconds, empty.startMilliseconds, 1.6);
    compare("idle memory, MB", ours.megabytes, empty.megabytes, 1.5);
    std::printf("%-22s %.0f against %.0f\n", "wake-ups in 5 s idle",
                median(ours.wakeUpsInFiveSeconds), median(empty.wakeUpsInFiveSeconds));
    return withinBounds ? 0 : 1;
}
