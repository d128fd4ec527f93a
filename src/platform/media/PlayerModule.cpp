#include "platform/media/PlayerModule.h"

#include "core/Error.h"
#include "platform/media/PlayerBackend.h"
#include "platform/media/UnavailablePlayer.h"

#include <QLibrary>

#include <exception>
#include <utility>

namespace clipwren {
namespace {

// An end takes a few milliseconds, unless it waits for a name look-up.
constexpr std::chrono::seconds endingGrace(2);

} // namespace

PlayerModule::PlayerModule(const QStringList &folders, std::chrono::milliseconds networkTimeout)
    : m_module(QStringLiteral("clipwren_player"), folders), m_networkTimeout(networkTimeout)
{
}

PlayerModule::~PlayerModule()
{
    waitForEndedPlayers(endingGrace);
}

bool PlayerModule::waitForEndedPlayers(std::chrono::milliseconds timeout)
{
    return !m_backend || m_backend->waitForEndedPlayers(timeout);
}

void PlayerModule::warmUp()
{
    if (m_backend || std::exchange(m_isWarm, true))
        return;
    m_warmUp = BackgroundTask::start(
        [path = m_module.path()](const std::stop_token &, const BackgroundTask::Post &) {
            // Whether it worked is found out, with the reason, when the first player is made.
            QLibrary(path).load();
        },
        [] {}, [](const std::exception_ptr &) {});
}

PlayerBackend *PlayerModule::backend()
{
    if (m_backend)
        return m_backend;
    if (const auto function = m_module.resolve("clipwrenPlayerBackend2")) {
        m_backend = reinterpret_cast<decltype(&clipwrenPlayerBackend2)>(function)();
        return m_backend;
    }
    m_failure = QStringLiteral("The player cannot be used: %1").arg(m_module.failure());
    return nullptr;
}

std::unique_ptr<MediaPlayer> PlayerModule::makePlayer(Purpose purpose)
{
    try {
        if (PlayerBackend *const loaded = backend())
            return loaded->makePlayer({m_networkTimeout, purpose == Purpose::Pictures});
    } catch (const std::exception &error) {
        m_failure = errorDescription(error);
    }
    return std::make_unique<UnavailablePlayer>(m_failure);
}

} // namespace clipwren
