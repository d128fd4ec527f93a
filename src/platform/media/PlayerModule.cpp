#include "platform/media/PlayerModule.h"

#include "core/Error.h"
#include "core/Logging.h"
#include "platform/media/PlayerBackend.h"
#include "platform/media/UnavailablePlayer.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLibrary>

#include <exception>
#include <utility>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

// An end takes a few milliseconds, unless it waits for a name look-up.
constexpr std::chrono::seconds endingGrace(2);

const QString fileName = u"clipwren_player.so"_s;

} // namespace

PlayerModule::PlayerModule(QStringList folders, std::chrono::milliseconds networkTimeout)
    : m_folders(std::move(folders)), m_networkTimeout(networkTimeout)
{
}

PlayerModule::~PlayerModule()
{
    waitForEndedPlayers(endingGrace);
}

QStringList PlayerModule::defaultFolders()
{
    const QString here = QCoreApplication::applicationDirPath();
    return {here, here + u"/" CLIPWREN_MODULE_FROM_PROGRAM ""_s};
}

QString PlayerModule::path() const
{
    for (const QString &folder : m_folders) {
        const QFileInfo file(folder + u'/' + fileName);
        if (file.isFile())
            return file.absoluteFilePath();
    }
    return {};
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
        [path = path()](const std::stop_token &, const BackgroundTask::Post &) {
            // Whether it worked is found out, with the reason, when the first player is made.
            QLibrary(path).load();
        },
        [] {}, [](const std::exception_ptr &) {});
}

PlayerBackend *PlayerModule::backend()
{
    if (m_backend)
        return m_backend;
    const QString file = path();
    QLibrary library(file);
    if (!file.isEmpty()) {
        if (const auto function = library.resolve("clipwrenPlayerBackend2")) {
            m_backend = reinterpret_cast<decltype(&clipwrenPlayerBackend2)>(function)();
            return m_backend;
        }
    }
    m_failure =
        QCoreApplication::translate("PlayerModule", "The player cannot be used: %1")
            .arg(file.isEmpty()
                     ? QCoreApplication::translate(
                           "PlayerModule",
                           "%1 was not found. Installing Clipwren again should bring it back.")
                           .arg(fileName)
                     : library.errorString());
    qCWarning(playerLog).noquote() << m_failure;
    return nullptr;
}

std::unique_ptr<MediaPlayer> PlayerModule::makePlayer(Purpose purpose)
{
    try {
        if (PlayerBackend *const loaded = backend())
            return loaded->makePlayer({m_networkTimeout, purpose == Purpose::Pictures});
    } catch (const std::exception &error) {
        m_failure = errorDescription(error);
        qCWarning(playerLog).noquote() << m_failure;
    }
    return std::make_unique<UnavailablePlayer>(m_failure);
}

} // namespace clipwren
