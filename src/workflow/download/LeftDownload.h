#pragma once

#include <QString>
#include <QStringList>

/// The downloads that no record names yet: what a cut that failed or was cancelled leaves is used
/// by the next attempt, in whatever process, and removed when the video is saved.
///
/// An extended attribute marks the file itself, so that nothing else is left in the user's folder.
/// It holds no address or title in plain text, as it goes along when the file is given away. A file
/// that was changed or renamed since is the user's; so is any file where the file system has no
/// such attributes. Whoever calls these holds the video's `VideoLock`.
namespace clipwren::LeftDownload {

/// `purpose` tells the downloads of one video apart.
void mark(const QString &path, const QString &video, const QString &purpose);
void unmark(const QString &path);

/// Those of the video in that folder.
QStringList find(const QString &folder, const QString &video);
/// Whether the file is one of them, and unchanged.
bool isLeft(const QString &path, const QString &video);
bool isLeftFor(const QString &path, const QString &video, const QString &purpose);

} // namespace clipwren::LeftDownload
