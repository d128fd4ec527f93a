#include "app/instance/LibraryHandOver.h"

#include "app/instance/LibraryClaim.h"
#include "core/Logging.h"
#include "core/json/JsonObjectReader.h"
#include "core/library/DownloadStore.h"
#include "core/library/HistoryStore.h"
#include "core/library/JsonFields.h"
#include "core/library/ReplaceFile.h"

#include <QCoreApplication>
#include <QDir>

#include <algorithm>
#include <system_error>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

const QString pendingName = u"pending-%1.json"_s;

InstanceMessage messageOf(const InstanceMessage::Saved &saved)
{
    InstanceMessage message;
    message.saved = saved;
    return message;
}

/// Returns why the record could not be kept, if so.
std::optional<QString> keepPending(const InstanceMessage::Saved &saved, const QString &folder)
{
    try {
        replaceFile(QDir(folder).filePath(pendingName.arg(idText(saved.record.id))),
                    messageOf(saved).toJson() + '\n');
        return std::nullopt;
    } catch (const std::system_error &error) {
        return errorDescription(error);
    }
}

std::optional<QString> applyToFiles(const InstanceMessage::Saved &saved, const QString &folder)
{
    DownloadStore store(folder);
    HistoryStore history(folder);
    takeUpPending(folder, store, history);
    return applySaved(saved, store, history);
}

/// Why the record is in no list, if so.
std::optional<QString> tell(const InstanceMessage::Saved &saved, const QString &folder,
                            const LibraryClaim &claim)
{
    switch (claim.outcome) {
    case LibraryClaim::Outcome::Held:
        return applyToFiles(saved, folder);
    case LibraryClaim::Outcome::Refused:
        return QCoreApplication::translate("LibraryHandOver", "the open window could not save it");
    case LibraryClaim::Outcome::Unusable:
        return claim.lock.error();
    case LibraryClaim::Outcome::Delivered:
    case LibraryClaim::Outcome::Silent:
        break;
    }
    return std::nullopt;
}

} // namespace

std::optional<QString> applySaved(const InstanceMessage::Saved &saved, DownloadStore &store,
                                  HistoryStore &history)
{
    const DownloadRecord &record = saved.record;
    const auto &records = store.records();
    // Who got no answer in time tells it again.
    if (std::ranges::find(records, record.id, &DownloadRecord::id) == records.end()) {
        store.add(record);
        history.recordDownload(record.sourceURL, saved.historyTitle, record.thumbnailURL,
                               record.durationSeconds);
    }
    return store.saveError() ? store.saveError() : history.saveError();
}

HandOver handOverSaved(const InstanceMessage::Saved &saved, const QString &libraryFolder,
                       std::chrono::milliseconds patience, const std::stop_token &stop)
{
    const LibraryClaim claim = claimLibrary(libraryFolder, messageOf(saved), patience, stop);
    HandOver result;
    result.failure = tell(saved, libraryFolder, claim);
    if (!result.failure && claim.outcome != LibraryClaim::Outcome::Silent)
        return result;
    const auto notKept = keepPending(saved, libraryFolder);
    result.isPending = !notKept;
    if (!result.failure)
        result.failure = notKept;
    return result;
}

void takeUpPending(const QString &libraryFolder, DownloadStore &store, HistoryStore &history)
{
    QDir folder(libraryFolder);
    const auto oldestFirst = QDir::Time | QDir::Reversed;
    for (const QString &name :
         folder.entryList({pendingName.arg(u"*"_s)}, QDir::Files, oldestFirst)) {
        QFile file(folder.filePath(name));
        try {
            if (!file.open(QIODevice::ReadOnly))
                throw Error(file.errorString());
            const auto saved = InstanceMessage::fromJson(file.readAll()).saved;
            if (!saved)
                throw Error(QCoreApplication::translate("LibraryHandOver", "it holds no record"));
            // Kept, it is found in the list the next time.
            if (!applySaved(*saved, store, history) && !file.remove())
                qCWarning(libraryLog).noquote() << "Not removed:" << file.fileName();
        } catch (const Error &error) {
            qCWarning(libraryLog).noquote()
                << "Left alone:" << file.fileName() << error.errorDescription();
        }
    }
}

} // namespace clipwren
