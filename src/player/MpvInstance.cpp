#include "player/MpvInstance.h"

#include "core/Error.h"
#include "player/LowPriority.h"

#include <QCoreApplication>
#include <QFile>
#include <QPointer>
#include <QThreadPool>

#include <limits>
#include <thread>
#include <utility>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

struct Option {
    const char *name;
    const char *value;
};

constexpr Option generalOptions[] = {
    {"vo", "libmpv"},
    {"config", "no"},
    {"ytdl", "no"},
    {"load-scripts", "no"},
    {"load-stats-overlay", "no"},
    {"load-osd-console", "no"},
    {"load-auto-profiles", "no"},
    {"osd-level", "0"},
    {"terminal", "no"},
    {"input-default-bindings", "no"},
    {"load-unsafe-playlists", "no"},
    // The parts of a stream from the network come from the network, too.
    {"demuxer-lavf-o", "protocol_whitelist=[http,https,httpproxy,tcp,tls,crypto,data]"},
    {"sub-auto", "no"},
    {"sid", "no"},
    {"audio-file-auto", "no"},
    {"cover-art-auto", "no"},
    {"resume-playback", "no"},
    {"idle", "yes"},
    {"pause", "yes"},
    {"keep-open", "yes"},
    {"tls-verify", "yes"},
    // Enough to play on while the network stumbles; the rest of a stream that nobody plays is not
    // fetched.
    {"cache-secs", "20"},
    {"demuxer-max-bytes", "48MiB"},
    {"demuxer-max-back-bytes", "16MiB"},
    {"video-timing-offset", "0"},
    // The sound of desktops. What else mpv would try fails with lines on standard error.
    {"ao", "pipewire,pulse,alsa,jack"},
    {"audio-fallback-to-null", "yes"},
    {"audio-client-name", "Clipwren"},
};

// For single pictures, made beside everything else.
constexpr Option backgroundOptions[] = {
    {"aid", "no"},
    {"vd-lavc-threads", "1"},
    {"cache-secs", "1"},
    {"demuxer-max-bytes", "4MiB"},
    {"demuxer-max-back-bytes", "0"},
};

/// Looking for decoders of a graphics card that is not there takes time, and their libraries
/// write to standard error.
const char *hardwareDecoders()
{
    const bool hasGraphicsCard = QFile::exists(u"/dev/dri"_s) || QFile::exists(u"/dev/nvidia0"_s);
    return hasGraphicsCard ? "auto-copy" : "no";
}

/// Never destroyed: leaving the program must not wait for a core that hangs in a name look-up.
QThreadPool &endingCores()
{
    static QThreadPool *const pool = [] {
        auto *const threads = new QThreadPool;
        threads->setMaxThreadCount(std::numeric_limits<int>::max());
        return threads;
    }();
    return *pool;
}

Error startFailure(int mpvError)
{
    return Error(QCoreApplication::translate("MpvPlayer", "The player could not be started: %1.")
                     .arg(QString::fromUtf8(mpv_error_string(mpvError))));
}

} // namespace

MpvInstance::MpvInstance(const PlayerOptions &options)
{
    if (options.background) {
        // mpv's threads inherit the priority of the one that starts them.
        std::exception_ptr failure;
        std::thread([&] {
            lowerThreadPriority();
            try {
                start(options);
            } catch (...) {
                failure = std::current_exception();
            }
        }).join();
        if (failure)
            std::rethrow_exception(failure);
    } else {
        start(options);
    }
    m_renderer = std::make_unique<VideoRenderer>(m_renderContext, options.background);
    mpv_set_wakeup_callback(
        m_handle,
        [](void *self) {
            auto *const instance = static_cast<MpvInstance *>(self);
            if (!instance->m_drainPosted.exchange(true))
                QMetaObject::invokeMethod(instance, &MpvInstance::drainEvents,
                                          Qt::QueuedConnection);
        },
        this);
}

void MpvInstance::start(const PlayerOptions &options)
{
    m_handle = mpv_create();
    if (!m_handle)
        throw Error(QCoreApplication::translate("MpvPlayer", "The player could not be started."));
    // Options that this version lacks are of no use to it either.
    for (const auto &[name, value] : generalOptions)
        mpv_set_option_string(m_handle, name, value);
    if (options.background) {
        for (const auto &[name, value] : backgroundOptions)
            mpv_set_option_string(m_handle, name, value);
    }
    mpv_set_option_string(m_handle, "hwdec", hardwareDecoders());
    double timeoutSeconds = std::chrono::duration<double>(options.networkTimeout).count();
    mpv_set_option(m_handle, "network-timeout", MPV_FORMAT_DOUBLE, &timeoutSeconds);
    mpv_request_log_messages(m_handle, "error");

    int error = mpv_initialize(m_handle);
    if (error >= 0) {
        char api[] = MPV_RENDER_API_TYPE_SW;
        mpv_render_param parameters[]{{MPV_RENDER_PARAM_API_TYPE, api},
                                      {MPV_RENDER_PARAM_INVALID, nullptr}};
        error = mpv_render_context_create(&m_renderContext, m_handle, parameters);
    }
    if (error < 0) {
        mpv_terminate_destroy(m_handle);
        throw startFailure(error);
    }
}

MpvInstance::~MpvInstance()
{
    // After this returns, no callback runs any more.
    mpv_set_wakeup_callback(m_handle, nullptr, nullptr);
    m_renderer.reset();
    endingCores().start([handle = m_handle, context = m_renderContext] {
        mpv_render_context_free(context);
        mpv_terminate_destroy(handle);
    });
}

bool MpvInstance::waitForEnded(std::chrono::milliseconds timeout)
{
    return endingCores().waitForDone(static_cast<int>(timeout.count()));
}

void MpvInstance::setEventHandler(EventHandler handler)
{
    m_handler = std::move(handler);
}

void MpvInstance::drainEvents()
{
    const QPointer guard(this);
    m_drainPosted = false;
    bool last = false;
    while (guard && !last) {
        const mpv_event *const event = mpv_wait_event(m_handle, 0);
        last = event->event_id == MPV_EVENT_NONE;
        const EventHandler handler = m_handler;
        if (handler)
            handler(*event);
    }
}

void MpvInstance::command(quint64 replyId, const std::vector<QByteArray> &words)
{
    std::vector<const char *> arguments;
    arguments.reserve(words.size() + 1);
    for (const QByteArray &word : words)
        arguments.push_back(word.constData());
    arguments.push_back(nullptr);
    mpv_command_async(m_handle, replyId, arguments.data());
}

void MpvInstance::setProperty(quint64 replyId, const char *name, const QByteArray &value)
{
    const char *text = value.constData();
    mpv_set_property_async(m_handle, replyId, name, MPV_FORMAT_STRING, &text);
}

} // namespace clipwren
