#include "platform/media/PlayerBackend.h"
#include "player/MpvInstance.h"
#include "player/MpvLog.h"
#include "player/MpvPlayer.h"

#include <clocale>
#include <cstring>
#include <optional>

namespace clipwren {
namespace {

class MpvBackend : public PlayerBackend {
public:
    std::unique_ptr<MediaPlayer> makePlayer(const PlayerOptions &options) override
    {
        requireCNumbers();
        if (!m_log)
            m_log.emplace();
        return std::make_unique<MpvPlayer>(*m_log, options);
    }

    bool waitForEndedPlayers(std::chrono::milliseconds timeout) override
    {
        return MpvInstance::waitForEnded(timeout);
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

clipwren::PlayerBackend *clipwrenPlayerBackend2()
{
    // Never destroyed: at exit() a PlayerModule may still wait for ended players.
    static auto *const backend = new clipwren::MpvBackend;
    return backend;
}
