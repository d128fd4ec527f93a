#include "app/window/WindowProgram.h"

#include "app/InterruptSignal.h"
#include "app/instance/InstanceChannel.h"
#include "app/instance/LibraryHandOver.h"
#include "app/instance/LibraryLock.h"
#include "app/window/MainWindow.h"
#include "core/library/DownloadStore.h"
#include "core/library/HistoryStore.h"
#include "core/library/LibraryFolder.h"
#include "core/process/ToolEnvironment.h"
#include "platform/desktop/SettingsPreferences.h"
#include "platform/media/PlayerModule.h"
#include "platform/system/SystemDesktop.h"
#include "ui/components/DesktopAppearance.h"
#include "ui/components/Theme.h"

#include <QApplication>
#include <QIcon>
#include <QTimer>

#include <cstdio>

namespace clipwren {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds afterFirstFrame = 400ms;

/// True when the application that runs already has taken the address.
bool handOverToRunning(const QString &address)
{
    InstanceMessage message;
    message.show = InstanceMessage::Show{address, qEnvironmentVariable("XDG_ACTIVATION_TOKEN")};
    return sendToRunningInstance(message);
}

} // namespace

int runWindow(const QString &address)
{
    // A save from the command line holds the lists for a moment at its end.
    const LibraryLock lock(defaultLibraryFolder(), 100ms);
    // Without a folder to write to, the lists live in memory.
    if (lock.isHeldElsewhere()) {
        if (handOverToRunning(address))
            return 0;
        std::fputs("Clipwren is running already, but does not answer.\n", stderr);
        return 1;
    }
    // Ties the window to its entry among the desktop's applications, and so to its symbol.
    QGuiApplication::setDesktopFileName(QStringLiteral("clipwren"));
    Theme theme;
    DesktopAppearance appearance;
    theme.follow(appearance);

    DownloadStore store;
    HistoryStore history;
    ToolEnvironment tools(ToolEnvironment::defaultSearchDirectories(),
                          ToolEnvironment::Versions::Skip);
    PendingFetchBox pendingFetch;
    SystemDesktop desktop;
    SettingsPreferences preferences;
    PlayerModule players;
    MainWindow window({store, history, tools, pendingFetch, desktop, preferences,
                       [&players] { return players.makePlayer(); },
                       [&players] { return players.makePlayer(PlayerModule::Purpose::Pictures); },
                       DownloadStore::defaultDownloadDirectory()},
                      players);
    InstanceServer server;
    QObject::connect(
        &server, &InstanceServer::received, &window, [&](const InstanceMessage &message) {
            if (message.saved)
                applySaved(*message.saved, store, history);
            if (message.show)
                window.comeToFront(message.show->address, message.show->activationToken);
        });
    InterruptSignal interrupt;
    QObject::connect(&interrupt, &InterruptSignal::interrupted, &window, &MainWindow::close);
    window.show();
    // The tools take longer to start than the window, and would do so at its expense.
    QTimer::singleShot(afterFirstFrame, &tools, &ToolEnvironment::readVersions);
    // Where no entry of the desktop brings a symbol. Drawing it takes time, too.
    QTimer::singleShot(afterFirstFrame, &window, [] {
        QApplication::setWindowIcon(QIcon(QStringLiteral(":/desktop/clipwren.svg")));
    });
    if (!address.isEmpty())
        window.content().lookUp(address);
    return QApplication::exec();
}

} // namespace clipwren
