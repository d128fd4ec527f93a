#pragma once

#include <QByteArray>
#include <QObject>

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <mpv/client.h>
#include <vector>

namespace clipwren {

/// One mpv core, shared by the player that commands it and the surface that draws it, so that it
/// outlives whichever of them goes last.
///
/// Used on the user-interface thread. Commands do not wait for mpv; their outcome comes as an
/// event. The core ends in the background, as that can take as long as a name look-up.
class MpvInstance : public QObject, public std::enable_shared_from_this<MpvInstance> {
    Q_OBJECT

public:
    using EventHandler = std::function<void(const mpv_event &)>;

    /// Throws `Error` when mpv cannot start.
    explicit MpvInstance(std::chrono::milliseconds networkTimeout);
    ~MpvInstance() override;

    mpv_handle *handle() const { return m_handle; }

    /// Gets every event from now on, and an MPV_EVENT_NONE when there are no more for now; an empty
    /// one drops them. May be replaced by itself.
    void setEventHandler(EventHandler handler);

    /// `replyId` comes back in the event that tells the outcome.
    void command(quint64 replyId, const std::vector<QByteArray> &words);
    void setProperty(quint64 replyId, const char *name, const QByteArray &value);

    /// Where pictures go: to the surface, or decoded and dropped. Waits for mpv, which must have
    /// let go of a surface before its render context is freed.
    void useSurface(bool surface);

    /// True from a load to the new stream's first picture: mpv keeps the last picture of the old
    /// one, which must not be shown any more.
    bool isBlank() const { return m_blank; }
    void setBlank(bool blank);

Q_SIGNALS:
    void blankChanged();

private:
    void drainEvents();

    mpv_handle *m_handle = nullptr;
    EventHandler m_handler;
    std::atomic<bool> m_drainPosted = false;
    bool m_blank = true;
};

} // namespace clipwren
