#pragma once

#include "app/save/ProgressReport.h"
#include "app/save/SaveArguments.h"
#include "workflow/download/DownloaderView.h"

#include <QObject>

#include <optional>

namespace clipwren {

/// Saves one video from the command line: drives the downloader as the screen would, and tells on
/// standard error how far it is and how it failed.
class SaveCommand : public QObject {
    Q_OBJECT

public:
    enum ExitStatus { Saved = 0, Failed = 1, WrongUse = 2, Interrupted = 130 };

    SaveCommand(const SaveArguments &arguments, const ApplicationContext &context);

    void start();
    /// Stops the running tool; `finished` follows.
    void interrupt();

Q_SIGNALS:
    /// With `Saved`, the context's store holds the record.
    void finished(int exitStatus);

private:
    void follow();
    void chooseAndStart();
    void failLookup();
    void failDownload();
    void readVersion();
    void endWithHint();
    void fail(const QString &sentence, ExitStatus status = Failed);
    void finish(ExitStatus status);

    SaveArguments m_arguments;
    ToolEnvironment &m_tools;
    ProgressReport m_report;
    QString m_lastStatus;
    bool m_isLookingUp = false;
    bool m_interrupted = false;
    bool m_isEnding = false; // and waits for the version of the tool that failed
    bool m_isFinished = false;
    DownloaderView m_view;
};

/// The sentence that names what is missing, with how to install it; nothing when all is there.
std::optional<QString> missingTools(const ToolEnvironment &tools);

} // namespace clipwren
