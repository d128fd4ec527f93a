#include "ui/player/PlayerModule.h"

#include "core/Error.h"
#include "platform/media/UnavailablePlayer.h"
#include "ui/player/PlayerBackend.h"

#include <QLibrary>
#include <QPalette>
#include <QWidget>

#include <exception>
#include <utility>

namespace clipwren {

PlayerModule::PlayerModule(const QStringList &folders, std::chrono::milliseconds networkTimeout)
    : m_module(QStringLiteral("clipwren_player"), folders), m_networkTimeout(networkTimeout)
{
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
    if (const auto function = m_module.resolve("clipwrenPlayerBackend1")) {
        m_backend = reinterpret_cast<decltype(&clipwrenPlayerBackend1)>(function)();
        return m_backend;
    }
    m_failure = QStringLiteral("The player cannot be used: %1").arg(m_module.failure());
    return nullptr;
}

std::unique_ptr<MediaPlayer> PlayerModule::makePlayer()
{
    try {
        if (PlayerBackend *const loaded = backend())
            return loaded->makePlayer(m_networkTimeout);
    } catch (const std::exception &error) {
        m_failure = errorDescription(error);
    }
    return std::make_unique<UnavailablePlayer>(m_failure);
}

QWidget *PlayerModule::makeSurface(MediaPlayer &player, QWidget *parent)
{
    if (m_backend) {
        if (QWidget *const surface = m_backend->makeSurface(player, parent))
            return surface;
    }
    auto *const nothing = new QWidget(parent);
    nothing->setAutoFillBackground(true);
    nothing->setPalette(QPalette(Qt::black));
    return nothing;
}

} // namespace clipwren
