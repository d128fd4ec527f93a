#pragma once

#include "platform/media/PlayerBackend.h"
#include "player/VideoRenderer.h"

#include <QByteArray>
#include <QObject>

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <mpv/client.h>
#include <vector>

namespace clipwren {

/// One mpv core and its pictures.
///
/// Used on the user-interface thread. Commands do not wait for mpv; their outcome comes as an
/// event. The core ends in the background, as that can take as long as a name look-up.
class MpvInstance : public QObject {
    Q_OBJECT

public:
    using EventHandler = std::function<void(const mpv_event &)>;

    /// Throws `Error` when mpv cannot start.
    explicit MpvInstance(const PlayerOptions &options);
    ~MpvInstance() override;

    /// Waits until every core that was destroyed has ended. False when the time passed first.
    static bool waitForEnded(std::chrono::milliseconds timeout);

    mpv_handle *handle() const { return m_handle; }
    VideoRenderer &renderer() { return *m_renderer; }

    /// Gets every event from now on, and an MPV_EVENT_NONE when there are no more for now; an empty
    /// one drops them. May destroy the instance.
    void setEventHandler(EventHandler handler);

    /// `replyId` comes back in the event that tells the outcome.
    void command(quint64 replyId, const std::vector<QByteArray> &words);
    void setProperty(quint64 replyId, const char *name, const QByteArray &value);

private:
    void start(const PlayerOptions &options);
    void drainEvents();

    mpv_handle *m_handle = nullptr;
    mpv_render_context *m_renderContext = nullptr;
    std::unique_ptr<VideoRenderer> m_renderer;
    EventHandler m_handler;
    std::atomic<bool> m_drainPosted = false;
};

} // namespace clipwren
