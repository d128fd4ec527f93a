#include "app/save/SaveProgram.h"

#include "app/InterruptSignal.h"
#include "app/instance/InstanceChannel.h"
#include "app/instance/LibraryHandOver.h"
#include "app/save/SaveCommand.h"
#include "app/save/TerminalText.h"
#include "core/library/DownloadStore.h"
#include "core/library/HistoryStore.h"
#include "core/library/LibraryFolder.h"
#include "core/process/ToolEnvironment.h"
#include "platform/desktop/SettingsPreferences.h"
#include "platform/desktop/SilentDesktop.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <cstdio>
#include <unistd.h>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

void print(std::FILE *output, const QString &text)
{
    std::fputs(text.toUtf8().constData(), output);
}

/// Takes what the downloader recorded over into the user's lists. False when they were not reached.
bool recordInLibrary(const DownloadStore &store, const HistoryStore &history)
{
    InstanceMessage::Saved saved{store.records().first(), history.entries().first().title};
    // Without a title the entry is called by its address, which is no news to the user's history.
    if (saved.historyTitle == saved.record.sourceURL)
        saved.historyTitle.clear();
    return handOverSaved(saved, defaultLibraryFolder(), InstanceServer::defaultSocketPath());
}

/// Exactly as it is where a program reads it.
void printPath(const QString &path)
{
    const bool isTerminal = ::isatty(::fileno(stdout)) == 1;
    print(stdout, (isTerminal ? forTerminal(path) : path) + u'\n');
    std::fflush(stdout);
}

} // namespace

int runSave(const QStringList &arguments)
{
    if (arguments.contains("--help"_L1)) {
        print(stdout, SaveArguments::usage());
        return SaveCommand::Saved;
    }
    SaveArguments parsed;
    try {
        parsed = SaveArguments::parse(arguments);
    } catch (const UsageError &error) {
        print(stderr, forTerminal(error.errorDescription()) + u"\n\n"_s + SaveArguments::usage());
        return SaveCommand::WrongUse;
    }
    // Another process may have the user's lists open, now or before this ends. The downloader gets
    // lists of its own, and what it recorded is handed over at the end.
    const QTemporaryDir folder;
    if (!folder.isValid()) {
        print(stderr, u"No temporary folder can be made: %1\n"_s.arg(folder.errorString()));
        return SaveCommand::Failed;
    }
    DownloadStore store(folder.path());
    HistoryStore history(folder.path());
    ToolEnvironment tools(ToolEnvironment::defaultSearchDirectories(),
                          ToolEnvironment::Versions::Skip);
    PendingFetchBox noRequests;
    SilentDesktop desktop;
    SettingsPreferences preferences;
    SaveCommand command(parsed,
                        {.store = store,
                         .history = history,
                         .tools = tools,
                         .pendingFetch = noRequests,
                         .desktop = desktop,
                         .preferences = preferences,
                         .downloadDirectory = DownloadStore::defaultDownloadDirectory(),
                         .otherRecords = [] { return DownloadStore().records(); }});
    InterruptSignal interrupt;
    QObject::connect(&interrupt, &InterruptSignal::interrupted, &command, &SaveCommand::interrupt);
    QObject::connect(&command, &SaveCommand::finished, &QCoreApplication::exit);
    QMetaObject::invokeMethod(&command, &SaveCommand::start, Qt::QueuedConnection);
    const int status = QCoreApplication::exec();
    if (status != SaveCommand::Saved)
        return status;
    const QString path = store.records().first().filePath;
    if (!recordInLibrary(store, history)) {
        ProgressReport(stderr).line(
            u"The file is saved as “%1”, but the list of files could not be reached."_s.arg(path));
        return SaveCommand::Failed;
    }
    printPath(path);
    return SaveCommand::Saved;
}

} // namespace clipwren
