#pragma once

#include "core/process/FileDescriptor.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>
#include <stop_token>

namespace clipwren {

/// Who holds it is alone in saving a video to a folder, whatever its format and range: the tools
/// and we write to files whose names the video gives.
///
/// A hidden file in that folder, so that it counts for every process that saves there, whatever
/// lists it keeps. The system gives the lock back when a process ends, however that comes.
///
/// The file also names the downloads that no record names yet: what a cut that failed or was
/// cancelled leaves is used by the next attempt, in whatever process, and removed in the end. It
/// goes with the lock, or with the last of them. Not to be used on two threads at once.
class VideoLock {
public:
    /// Waits until nobody else has the lock; `onWait` is called once before that. Throws
    /// `CancellationError` on a request to stop.
    ///
    /// Where nothing can be written or locked, nobody has the lock; what is to be saved there
    /// fails by itself.
    static std::shared_ptr<VideoLock> take(const QString &folder, const QString &video,
                                           const std::function<void()> &onWait,
                                           const std::stop_token &stop);
    VideoLock(const VideoLock &) = delete;
    VideoLock &operator=(const VideoLock &) = delete;
    ~VideoLock();

    /// Remembers a download that was made for `purpose`.
    void addDownload(const QString &path, const QString &purpose);
    /// Those that are there and were not changed since.
    QStringList downloads() const;
    /// That of them which was made for `purpose`, if any.
    std::optional<QString> downloadFor(const QString &purpose) const;
    void forgetDownload(const QString &path);

    /// Removes the locks of processes that were killed, unless they name a download.
    static void removeAfterKill(const QString &folder);

private:
    struct Download {
        QString path;
        QString purpose;
        QString identity; ///< tells a file that was left alone from one that was changed
    };

    explicit VideoLock(const QString &path);
    /// False while somebody else has it.
    bool tryToTake();
    void readDownloads();
    void writeDownloads();

    QString m_path;
    FileDescriptor m_file;
    QList<Download> m_downloads;
};

} // namespace clipwren
