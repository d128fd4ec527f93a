#include "app/save/InterruptSignal.h"
#include "app/save/SaveCommand.h"
#include "core/library/DownloadStore.h"
#include "core/library/HistoryStore.h"
#include "core/process/ToolEnvironment.h"
#include "platform/desktop/SettingsPreferences.h"
#include "platform/desktop/SilentDesktop.h"

#include <QCoreApplication>

#include <cstdio>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

QString usage()
{
    return SaveArguments::usage()
        + u"\n"
          "       clipwren --help | --version\n"_s;
}

void print(std::FILE *output, const QString &text)
{
    std::fputs(text.toUtf8().constData(), output);
}

int save(const QStringList &arguments)
{
    SaveArguments parsed;
    try {
        parsed = SaveArguments::parse(arguments);
    } catch (const UsageError &error) {
        print(stderr, error.errorDescription() + u"\n\n"_s + usage());
        return SaveCommand::WrongUse;
    }
    DownloadStore store;
    HistoryStore history;
    ToolEnvironment tools(ToolEnvironment::defaultSearchDirectories(),
                          ToolEnvironment::Versions::Skip);
    SilentDesktop desktop;
    const SettingsPreferences preferences;
    SaveCommand command(parsed, store, history, tools, desktop, preferences);
    InterruptSignal interrupt;
    QObject::connect(&interrupt, &InterruptSignal::interrupted, &command, &SaveCommand::interrupt);
    QObject::connect(&command, &SaveCommand::finished, &QCoreApplication::exit);
    QMetaObject::invokeMethod(&command, &SaveCommand::start, Qt::QueuedConnection);
    return QCoreApplication::exec();
}

int run(const QStringList &arguments)
{
    const QString first = arguments.value(1);
    if (first == "save"_L1)
        return save(arguments.mid(2));
    if (first == "--version"_L1) {
        print(stdout, u"clipwren " CLIPWREN_VERSION "\n"_s);
        return 0;
    }
    if (first == "--help"_L1) {
        print(stdout, usage());
        return 0;
    }
    print(stderr, usage());
    return SaveCommand::WrongUse;
}

} // namespace
} // namespace clipwren

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const int status = clipwren::run(QCoreApplication::arguments());
    // Tools that were asked to stop are killed after a while, so this ends.
    clipwren::BackgroundTask::waitForAll(std::chrono::seconds(20));
    return status;
}
