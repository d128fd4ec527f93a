#pragma once

#include "app/instance/InstanceChannel.h"

#include <chrono>
#include <optional>
#include <stop_token>

namespace clipwren {

class DownloadStore;
class HistoryStore;

/// Puts a file that was saved from the command line into the lists, unless its record is there.
/// Returns why the lists could not be saved, if so.
std::optional<QString> applySaved(const InstanceMessage::Saved &saved, DownloadStore &store,
                                  HistoryStore &history);

/// What became of a record that was handed over.
struct HandOver {
    /// It waits in a file beside the lists, which the next start takes up.
    bool isPending = false;
    /// Why it is in no list, unless nobody answered, which only takes longer.
    std::optional<QString> failure;
};

/// Puts it into the lists from another process: into the files, or through the application that
/// has them open. Where neither can be reached in time, keeps the record for the next start.
/// Blocks; a stop makes the time be over.
HandOver handOverSaved(const InstanceMessage::Saved &saved, const QString &libraryFolder,
                       std::chrono::milliseconds patience, const std::stop_token &stop = {});

/// Puts the records that wait in files beside the lists into them, and removes the files when the
/// lists are saved. Call as the holder of the folder's `LibraryLock`.
void takeUpPending(const QString &libraryFolder, DownloadStore &store, HistoryStore &history);

} // namespace clipwren
