#include "player/MpvLog.h"
#include "player/MpvPlayer.h"
#include "player/VideoSurface.h"
#include "ui/player/PlayerBackend.h"

#include <clocale>
#include <cstring>
#include <optional>

namespace clipwren {
namespace {

class MpvBackend : public PlayerBackend {
public:
    std::unique_ptr<MediaPlayer> makePlayer(std::chrono::milliseconds networkTimeout) override
    {
        requireCNumbers();
        if (!m_log)
            m_log.emplace();
        return std::make_unique<MpvPlayer>(*m_log, networkTimeout);
    }

    QWidget *makeSurface(MediaPlayer &player, QWidget *parent) override
    {
        const auto *const ours = dynamic_cast<MpvPlayer *>(&player);
        return ours ? new VideoSurface(ours->instance(), parent) : nullptr;
    }

private:
    static void requireCNumbers()
    {
        // mpv refuses to start otherwise. Our own numbers go through QLocale.
        if (std::strcmp(std::setlocale(LC_NUMERIC, nullptr), "C") != 0)
            std::setlocale(LC_NUMERIC, "C");
    }

    std::optional<MpvLog> m_log;
};

} // namespace
} // namespace clipwren

clipwren::PlayerBackend *clipwrenPlayerBackend1()
{
    static clipwren::MpvBackend backend;
    return &backend;
}
