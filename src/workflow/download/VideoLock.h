#pragma once

#include "core/process/FileDescriptor.h"

#include <QString>

#include <functional>
#include <memory>
#include <stop_token>

namespace clipwren {

/// An exclusive lock on saving one video to one folder, in any format and range, since the names of
/// the files written there derive from the video.
///
/// It is flock() on a hidden file in that folder, which exists while the lock is held, so it works
/// between all processes that save there. The system releases it when a process ends, even by a
/// kill.
class VideoLock {
public:
    /// Blocks until the lock is free; calls `onWait` once before it waits. Throws
    /// `CancellationError` on a request to stop.
    ///
    /// Where the folder cannot be written or locked, this succeeds without a lock; saving there
    /// fails anyway.
    static std::shared_ptr<VideoLock> acquire(const QString &folder, const QString &video,
                                              const std::function<void()> &onWait,
                                              const std::stop_token &stop);
    VideoLock(const VideoLock &) = delete;
    VideoLock &operator=(const VideoLock &) = delete;
    ~VideoLock();

    /// Removes the lock files of killed processes.
    static void removeAfterKill(const QString &folder);

private:
    explicit VideoLock(const QString &path);
    /// False while another process or thread holds it.
    bool tryAcquire();

    QString m_path;
    FileDescriptor m_file;
};

} // namespace clipwren
