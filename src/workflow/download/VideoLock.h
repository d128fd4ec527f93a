#pragma once

#include "core/process/FileDescriptor.h"

#include <QString>

#include <functional>
#include <memory>
#include <stop_token>

namespace clipwren {

/// Who holds it is alone in saving a video to a folder, whatever its format and range: the tools
/// and we write to files whose names the video gives.
///
/// A hidden file in that folder, which is there for as long as the lock is held. So it counts for
/// every process that saves there, whatever lists it keeps. The system gives the lock back when a
/// process ends, however that comes.
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

    /// Removes the locks of processes that were killed.
    static void removeAfterKill(const QString &folder);

private:
    explicit VideoLock(const QString &path);
    /// False while somebody else has it.
    bool tryToTake();

    QString m_path;
    FileDescriptor m_file;
};

} // namespace clipwren
