#include "app/save/SaveProgram.h"

#include "app/InterruptSignal.h"
#include "app/instance/LibraryHandOver.h"
#include "app/save/SaveCommand.h"
#include "core/library/DownloadStore.h"
#include "core/library/HistoryStore.h"
#include "core/library/LibraryFolder.h"
#include "core/process/ToolEnvironment.h"
#include "platform/desktop/SettingsPreferences.h"
#include "platform/desktop/SilentDesktop.h"
#include "platform/system/SleepInhibitor.h"

#include <QCoreApplication>

#include <chrono>
#include <cstdio>
#include <memory>
#include <stop_token>
#include <thread>
#include <unistd.h>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

constexpr std::chrono::seconds patienceWithOthers(30);

/// There is no window, but the machine stays awake.
class SaveDesktop : public SilentDesktop {
public:
    std::unique_ptr<Activity> beginActivity() override { return std::make_unique<KeptAwake>(); }

private:
    struct KeptAwake : Activity {
        SleepInhibitor inhibitor;
    };
};

void print(std::FILE *output, const QString &text)
{
    std::fputs(text.toUtf8().constData(), output);
}

/// Exactly as it is where a program reads it.
void printPath(const QString &path)
{
    const bool isTerminal = ::isatty(::fileno(stdout)) == 1;
    print(stdout, (isTerminal ? forTerminal(path) : path) + u'\n');
    std::fflush(stdout);
}

/// Blocks, but serves an interrupt, which keeps the record for the next start at once.
HandOver handOver(const InstanceMessage::Saved &saved, InterruptSignal &interrupt)
{
    std::stop_source stop;
    QObject::connect(&interrupt, &InterruptSignal::interrupted, [&stop] { stop.request_stop(); });
    HandOver result;
    const std::jthread worker([&] {
        result = handOverSaved(saved, defaultLibraryFolder(), patienceWithOthers, stop.get_token());
        QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    });
    QCoreApplication::exec();
    return result;
}

/// Takes what the downloader recorded over into the user's lists, and prints the file's path when
/// that went well. Returns the exit status.
int recordInLibrary(const DownloadStore &store, const HistoryStore &history,
                    InterruptSignal &interrupt)
{
    const DownloadRecord &record = store.records().first();
    InstanceMessage::Saved saved{record, history.entries().first().title};
    // Without a title the entry is called by its address, which is no news to the user's history.
    if (saved.historyTitle == record.sourceURL)
        saved.historyTitle.clear();
    ProgressReport report(stderr);
    const HandOver result = handOver(saved, interrupt);
    if (result.failure) {
        const QString sentence = result.isPending
            ? QCoreApplication::translate("SaveProgram",
                                          "The file is saved as “%1”, but it is not in the list of "
                                          "files: %2. The next start of Clipwren tries again.")
            : QCoreApplication::translate(
                "SaveProgram",
                "The file is saved as “%1”, but it is not in the list of files: %2.");
        report.line(sentence.arg(record.filePath, *result.failure));
        return SaveCommand::Failed;
    }
    if (result.isPending)
        report.line(QCoreApplication::translate(
            "SaveProgram",
            "The list of files is in use. The next start of Clipwren adds this one."));
    printPath(record.filePath);
    return SaveCommand::Saved;
}

} // namespace

int runSave(const QStringList &arguments, const QString &downloadDirectory)
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
    const QString inMemory;
    DownloadStore store(inMemory);
    HistoryStore history(inMemory);
    ToolEnvironment tools(ToolEnvironment::defaultSearchDirectories(),
                          ToolEnvironment::Versions::Skip);
    PendingFetchBox noRequests;
    SaveDesktop desktop;
    SettingsPreferences preferences;
    SaveCommand command(parsed,
                        {.store = store,
                         .history = history,
                         .tools = tools,
                         .pendingFetch = noRequests,
                         .desktop = desktop,
                         .preferences = preferences,
                         .downloadDirectory = downloadDirectory,
                         .otherRecords = [] { return DownloadStore().records(); }});
    InterruptSignal interrupt;
    QObject::connect(&interrupt, &InterruptSignal::interrupted, &command, &SaveCommand::interrupt);
    QObject::connect(&command, &SaveCommand::finished, &QCoreApplication::exit);
    QMetaObject::invokeMethod(&command, &SaveCommand::start, Qt::QueuedConnection);
    const int status = QCoreApplication::exec();
    return store.records().isEmpty() ? status : recordInLibrary(store, history, interrupt);
}

} // namespace clipwren
