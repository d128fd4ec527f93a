#include "app/window/WindowProgram.h"

#include "app/InterruptSignal.h"
#include "app/instance/LibraryClaim.h"
#include "app/instance/LibraryHandOver.h"
#include "app/window/MainWindow.h"
#include "core/library/DownloadStore.h"
#include "core/library/HistoryStore.h"
#include "core/library/LibraryFolder.h"
#include "core/process/ToolEnvironment.h"
#include "platform/desktop/ApplicationId.h"
#include "platform/desktop/SettingsPreferences.h"
#include "platform/media/PlayerModule.h"
#include "platform/system/SystemDesktop.h"
#include "ui/components/DesktopAppearance.h"
#include "ui/components/Theme.h"

#include <QApplication>
#include <QCoreApplication>
#include <QIcon>
#include <QMessageBox>
#include <QTimer>

#include <cstdio>
#include <optional>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

constexpr std::chrono::milliseconds afterFirstFrame = 400ms;

constexpr std::chrono::milliseconds patienceWithOthers = 10s;

LibraryClaim claimLibraryFor(const InstanceMessage::Show &request)
{
    InstanceMessage message;
    message.show = request;
    return claimLibrary(defaultLibraryFolder(), message, patienceWithOthers);
}

/// Somebody who started from the desktop reads no standard error.
void tellThatNobodyAnswers()
{
    const QString sentence = QCoreApplication::translate(
        "WindowProgram", "Clipwren is running already, but does not answer.");
    std::fputs((sentence + u'\n').toUtf8().constData(), stderr);
    QMessageBox::critical(nullptr, u"Clipwren"_s, sentence);
}

} // namespace

int runWindow(const InstanceMessage::Show &request, const QString &downloadDirectory)
{
    using Outcome = LibraryClaim::Outcome;
    // Ties the window to its entry among the desktop's applications, and so to its symbol.
    QGuiApplication::setDesktopFileName(applicationId);
    const LibraryClaim claim = claimLibraryFor(request);
    if (claim.outcome == Outcome::Delivered || claim.outcome == Outcome::Refused)
        return 0;
    if (claim.outcome == Outcome::Silent) {
        tellThatNobodyAnswers();
        return 1;
    }
    // Without a folder to write to, the lists live in memory, and the window says so.
    Theme theme;
    DesktopAppearance appearance;
    theme.follow(appearance);

    // Once the server listens, whoever reached it may end us.
    InterruptSignal interrupt;
    DownloadStore store;
    HistoryStore history;
    if (claim.outcome == Outcome::Held)
        takeUpPending(defaultLibraryFolder(), store, history);
    ToolEnvironment tools(ToolEnvironment::defaultSearchDirectories(),
                          ToolEnvironment::Versions::Skip);
    PendingFetchBox pendingFetch;
    SystemDesktop desktop;
    SettingsPreferences preferences;
    PlayerModule players;
    const ApplicationContext context{
        .store = store,
        .history = history,
        .tools = tools,
        .pendingFetch = pendingFetch,
        .desktop = desktop,
        .preferences = preferences,
        .makePlayer = [&players] { return players.makePlayer(); },
        .makeBackgroundPlayer =
            [&players] { return players.makePlayer(PlayerModule::Purpose::Pictures); },
        .downloadDirectory = downloadDirectory};
    MainWindow window(context, players);
    std::optional<InstanceServer> server;
    if (claim.outcome == Outcome::Held) {
        server.emplace(defaultLibraryFolder(), [&](const InstanceMessage &message) {
            if (message.show)
                window.comeToFront(*message.show);
            // Somebody may have met with no answer before.
            takeUpPending(defaultLibraryFolder(), store, history);
            return !message.saved || !applySaved(*message.saved, store, history);
        });
    }
    QObject::connect(
        &desktop.notifier(), &Notifier::activated, &window,
        [&window](const QString &token) { window.comeToFront({.activationToken = token}); });
    QObject::connect(&interrupt, &InterruptSignal::interrupted, &window, &MainWindow::close);
    window.show();
    // The tools take longer to start than the window, and would do so at its expense.
    QTimer::singleShot(afterFirstFrame, &tools, &ToolEnvironment::readVersions);
    // Where no entry of the desktop brings a symbol. Drawing it takes time, too.
    QTimer::singleShot(afterFirstFrame, &window,
                       [] { QApplication::setWindowIcon(QIcon(u":/desktop/clipwren.svg"_s)); });
    if (!request.address.isEmpty())
        window.content().lookUp(request.address);
    const int status = QApplication::exec();
    store.saveAgain();
    history.saveAgain();
    return status;
}

} // namespace clipwren
