#pragma once

#include "app/instance/InstanceMessage.h"

#include <chrono>

namespace clipwren {

class DownloadStore;
class HistoryStore;

/// Puts a file that was saved from the command line into the lists, unless its record is there.
void applySaved(const InstanceMessage::Saved &saved, DownloadStore &store, HistoryStore &history);

/// Does so from another process: in the lists themselves, or through the application that has them
/// open. False when neither could be reached in time. Blocks.
bool handOverSaved(const InstanceMessage::Saved &saved, const QString &libraryFolder,
                   const QString &socketPath,
                   std::chrono::milliseconds patience = std::chrono::seconds(30));

} // namespace clipwren
