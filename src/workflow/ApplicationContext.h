#pragma once

#include "core/formats/OutputFormat.h"
#include "core/library/DownloadRecord.h"
#include "platform/media/MediaPlayer.h"

#include <QDate>
#include <QList>
#include <QString>

#include <chrono>
#include <functional>
#include <optional>

namespace clipwren {

class Desktop;
class DownloadStore;
class HistoryStore;
class PendingFetchBox;
class Preferences;
class ToolEnvironment;

/// What lives as long as the application, and so outlives each view that is given it.
struct ApplicationContext {
    DownloadStore &store;
    HistoryStore &history;
    ToolEnvironment &tools;
    PendingFetchBox &pendingFetch;
    Desktop &desktop;
    Preferences &preferences;
    MediaPlayerFactory makePlayer = {}; ///< absent where nothing can be shown: no preview then
    MediaPlayerFactory makeBackgroundPlayer = {}; ///< for single pictures; absent: there are none
    QString downloadDirectory = {}; ///< absolute; created by the download
    /// Records that the store does not hold, where it is not the user's library; absent else.
    std::function<QList<DownloadRecord>()> otherRecords = {};
    /// Of this run alone; absent: the preferred one, which another choice changes.
    std::optional<OutputFormat> format = std::nullopt;
    std::chrono::milliseconds infoTimeout = std::chrono::seconds(60);
    std::function<QDate()> today = &QDate::currentDate;
};

} // namespace clipwren
