#include "app/instance/LibraryHandOver.h"

#include "app/instance/InstanceChannel.h"
#include "app/instance/LibraryLock.h"
#include "core/library/DownloadStore.h"
#include "core/library/HistoryStore.h"

#include <QDeadlineTimer>

#include <algorithm>

namespace clipwren {

void applySaved(const InstanceMessage::Saved &saved, DownloadStore &store, HistoryStore &history)
{
    const DownloadRecord &record = saved.record;
    // Who got no answer in time tells it again.
    if (std::ranges::find(store.records(), record.id, &DownloadRecord::id) != store.records().end())
        return;
    store.add(record);
    history.recordDownload(record.sourceURL, saved.historyTitle, record.thumbnailURL,
                           record.durationSeconds);
}

bool handOverSaved(const InstanceMessage::Saved &saved, const QString &libraryFolder,
                   const QString &socketPath, std::chrono::milliseconds patience)
{
    using namespace std::chrono_literals;
    const QDeadlineTimer deadline(patience);
    InstanceMessage message;
    message.saved = saved;
    do {
        if (const LibraryLock lock(libraryFolder, 200ms); lock.isHeld()) {
            DownloadStore store(libraryFolder);
            HistoryStore history(libraryFolder);
            applySaved(saved, store, history);
            return true;
        }
        if (sendToRunningInstance(message, socketPath, 1s))
            return true;
    } while (!deadline.hasExpired());
    return false;
}

} // namespace clipwren
