#include "app/GuardedApplication.h"
#include "app/Translations.h"
#include "app/save/SaveArguments.h"
#include "app/save/SaveCommand.h"
#include "app/save/SaveProgram.h"
#include "app/window/WindowProgram.h"
#include "core/Error.h"
#include "core/Logging.h"
#include "core/library/DownloadStore.h"
#include "core/media/OutputFile.h"
#include "core/process/ProcessRunner.h"
#include "core/tasks/BackgroundTask.h"
#include "workflow/download/VideoLock.h"

#include <QApplication>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <fontconfig/fontconfig.h>
#include <memory>
#include <thread>
#include <unistd.h>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

QString usage()
{
    return QCoreApplication::translate(
               "main",
               "Usage: clipwren [ADDRESS]\n"
               "       clipwren --new-download\n"
               "       clipwren save [OPTION]… ADDRESS\n"
               "       clipwren --help | --version\n"
               "\n"
               "Opens the window, and looks the address up there. With “--new-download”, shows\n"
               "where an address is typed. With “save”, saves the video without a window and\n"
               "prints the file's path:\n")
        + u'\n' + SaveArguments::usage();
}

int print(std::FILE *output, const QString &text, int status)
{
    std::fputs(text.toUtf8().constData(), output);
    return status;
}

/// Tells how the program is called, in the user's language.
int printUsage(int &argc, char *argv[], std::FILE *output, int status)
{
    const QCoreApplication application(argc, argv);
    installTranslations();
    return print(output, usage(), status);
}

/// The tools inherit our input. ffmpeg takes what is typed for commands ("q" ends it as if all were
/// encoded), and swallows a script's list of addresses. Nor may a pipe to a tool take the number of
/// an output that we were started without.
void settleStandardDescriptors()
{
    int nothing = 0;
    do
        nothing = ::open("/dev/null", O_RDWR);
    while (nothing >= 0 && nothing <= STDERR_FILENO);
    ::dup2(nothing, STDIN_FILENO);
    ::close(nothing);
}

/// Leaves no tool behind. Those that were asked to stop are killed after a while, so this ends.
void endWork()
{
    BackgroundTask::stopAll();
    BackgroundTask::waitForAll(std::chrono::seconds(20));
    ProcessRunner::killTimedOutProcesses();
}

std::unique_ptr<QCoreApplication> makeWindowApplication(int &argc, char *argv[])
{
    // Reading what is configured about fonts takes as long as all the rest of this.
    const std::jthread fonts([] { ::FcInit(); });
    return std::make_unique<GuardedApplication<QApplication>>(argc, argv);
}

int run(int &argc, char *argv[])
{
    const QString first = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString();
    if (first == "--help"_L1)
        return printUsage(argc, argv, stdout, 0);
    if (first == "--version"_L1)
        return print(stdout, u"clipwren " CLIPWREN_VERSION "\n"_s, 0);
    settleStandardDescriptors();
    // A reader of our output that has gone is no reason to lose the record of a saved file.
    std::signal(SIGPIPE, SIG_IGN);
    // Some starters ignore it, and the system then keeps no child's exit status for us.
    std::signal(SIGCHLD, SIG_DFL);
    // Qt itself calls exit() when the connection to the screen breaks, whatever is at work.
    std::atexit(endWork);
    // What the desktop gave to our window alone; Qt looks for the first in our own environment.
    ProcessRunner::fixEnvironment({"XDG_ACTIVATION_TOKEN"_ba, "DESKTOP_STARTUP_ID"_ba});
    const bool isSave = first == "save"_L1;
    const bool isNewDownload = first == "--new-download"_L1;
    if (!isSave && ((first.startsWith(u'-') && !isNewDownload) || argc > 2))
        return printUsage(argc, argv, stderr, SaveCommand::WrongUse);

    const std::unique_ptr<QCoreApplication> application = isSave
        ? std::make_unique<GuardedApplication<QCoreApplication>>(argc, argv)
        : makeWindowApplication(argc, argv);
    QCoreApplication::setApplicationName(u"Clipwren"_s);
    installTranslations();
    const QString downloads = DownloadStore::defaultDownloadDirectory();
    const std::jthread tidying([downloads] {
        try {
            OutputFile::restoreAfterKill(downloads);
            VideoLock::removeAfterKill(downloads);
        } catch (const std::exception &error) {
            qCWarning(libraryLog) << "Left as it was after a kill:" << errorDescription(error);
        }
    });
    const InstanceMessage::Show request{.address = isNewDownload ? QString() : first,
                                        .newDownload = isNewDownload,
                                        .activationToken =
                                            qEnvironmentVariable("XDG_ACTIVATION_TOKEN")};
    const int status = isSave ? runSave(QCoreApplication::arguments().mid(2), downloads)
                              : runWindow(request, downloads);
    endWork();
    return status;
}

} // namespace
} // namespace clipwren

int main(int argc, char *argv[])
{
    return clipwren::run(argc, argv);
}
