#include "player/MpvInstance.h"

#include "core/Error.h"

#include <QFile>
#include <QThreadPool>

#include <utility>

namespace clipwren {
namespace {

struct Option {
    const char *name;
    const char *value;
};

constexpr Option options[] = {
    // Without a surface, streams open and seek all the same.
    {"vo", "null"},
    {"config", "no"},
    {"ytdl", "no"},
    {"load-scripts", "no"},
    {"load-stats-overlay", "no"},
    {"load-osd-console", "no"},
    {"load-auto-profiles", "no"},
    {"osd-level", "0"},
    {"terminal", "no"},
    {"input-default-bindings", "no"},
    // A stream of somebody else must not make mpv open anything but itself.
    {"access-references", "no"},
    {"load-unsafe-playlists", "no"},
    {"sub-auto", "no"},
    {"sid", "no"},
    {"audio-file-auto", "no"},
    {"resume-playback", "no"},
    {"idle", "yes"},
    {"pause", "yes"},
    {"keep-open", "yes"},
    {"tls-verify", "yes"},
    {"demuxer-max-bytes", "48MiB"},
    {"demuxer-max-back-bytes", "16MiB"},
    {"video-timing-offset", "0"},
    // Only for decoders whose pictures stay on the graphics card. The libraries of those that are
    // not there write to standard error.
    {"gpu-hwdec-interop", "no"},
    // The sound of desktops. What else mpv would try fails with lines on standard error.
    {"ao", "pipewire,pulse,alsa,jack"},
    {"audio-fallback-to-null", "yes"},
    {"audio-client-name", "Clipwren"},
};

/// Looking for decoders of a graphics card that is not there takes time, and their libraries
/// write to standard error.
const char *hardwareDecoders()
{
    const bool hasGraphicsCard =
        QFile::exists(QStringLiteral("/dev/dri")) || QFile::exists(QStringLiteral("/dev/nvidia0"));
    return hasGraphicsCard ? "auto-copy" : "no";
}

} // namespace

MpvInstance::MpvInstance(std::chrono::milliseconds networkTimeout)
{
    m_handle = mpv_create();
    if (!m_handle)
        throw Error(QStringLiteral("The player could not be started."));
    // Options that this version lacks are of no use to it either.
    for (const Option &option : options)
        mpv_set_option_string(m_handle, option.name, option.value);
    mpv_set_option_string(m_handle, "hwdec", hardwareDecoders());
    double timeoutSeconds = std::chrono::duration<double>(networkTimeout).count();
    mpv_set_option(m_handle, "network-timeout", MPV_FORMAT_DOUBLE, &timeoutSeconds);
    mpv_request_log_messages(m_handle, "error");
    if (const int error = mpv_initialize(m_handle); error < 0) {
        mpv_destroy(m_handle);
        throw Error(QStringLiteral("The player could not be started: %1.")
                        .arg(QString::fromUtf8(mpv_error_string(error))));
    }
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

MpvInstance::~MpvInstance()
{
    // After this returns, no callback runs any more.
    mpv_set_wakeup_callback(m_handle, nullptr, nullptr);
    // The application object waits for this pool before it goes.
    QThreadPool::globalInstance()->start([handle = m_handle] { mpv_terminate_destroy(handle); });
}

void MpvInstance::setEventHandler(EventHandler handler)
{
    m_handler = std::move(handler);
}

void MpvInstance::drainEvents()
{
    // A handler may destroy the player, and with it the last other owner.
    const auto self = shared_from_this();
    m_drainPosted = false;
    while (true) {
        const mpv_event *const event = mpv_wait_event(m_handle, 0);
        const bool last = event->event_id == MPV_EVENT_NONE;
        const EventHandler handler = m_handler;
        if (handler)
            handler(*event);
        if (last)
            return;
    }
}

void MpvInstance::command(quint64 replyId, const std::vector<QByteArray> &words)
{
    std::vector<const char *> arguments;
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

void MpvInstance::useSurface(bool surface)
{
    mpv_set_property_string(m_handle, "vo", surface ? "libmpv" : "null");
}

void MpvInstance::setBlank(bool blank)
{
    if (std::exchange(m_blank, blank) != blank)
        Q_EMIT blankChanged();
}

} // namespace clipwren
