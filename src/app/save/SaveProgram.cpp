#include "app/save/SaveProgram.h"

#include "app/InterruptSignal.h"
#include "app/instance/InstanceChannel.h"
#include "app/instance/LibraryHandOver.h"
#include "app/save/SaveCommand.h"
#include "core/library/DownloadStore.h"
#include "core/library/HistoryStore.h"
#include "core/library/LibraryFolder.h"
#include "core/process/ToolEnvironment.h"
#include "platform/desktop/SettingsPreferences.h"
#include "platform/desktop/SilentDesktop.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <cstdio>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

void print(std::FILE *output, const QString &text)
{
    std::fputs(text.toUtf8().constData(), output);
}

/// Takes what the downloader recorded over into the user's lists.
void recordInLibrary(const DownloadStore &store, const HistoryStore &history)
{
    if (store.records().isEmpty())
        return;
    InstanceMessage::Saved saved{store.records().first(), history.entries().first().title};
    // Without a title the entry is called by its address, which is no news to the user's history.
    if (saved.historyTitle == saved.record.sourceURL)
        saved.historyTitle.clear();
    if (!handOverSaved(saved, defaultLibraryFolder(), InstanceServer::defaultSocketPath()))
        print(stderr, u"The file is saved, but the list of files could not be reached.\n"_s);
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
        print(stderr, error.errorDescription() + u"\n\n"_s + SaveArguments::usage());
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
    SilentDesktop desktop;
    const SettingsPreferences preferences;
    SaveCommand command(parsed, store, history, tools, desktop, preferences);
    InterruptSignal interrupt;
    QObject::connect(&interrupt, &InterruptSignal::interrupted, &command, &SaveCommand::interrupt);
    QObject::connect(&command, &SaveCommand::finished, &QCoreApplication::exit);
    QMetaObject::invokeMethod(&command, &SaveCommand::start, Qt::QueuedConnection);
    const int status = QCoreApplication::exec();
    recordInLibrary(store, history);
    return status;
}

} // namespace clipwren
