#pragma once

#include <QString>
#include <QStringList>

/// Complete downloads that no record names, because the cut or conversion after them failed or was
/// cancelled. The next attempt, in whatever process, reuses them; saving the video removes them.
///
/// An extended attribute marks the file itself, so that no other file is needed in the user's
/// folder. It holds only hashes, since it is copied along when the file is given away. A file that
/// was changed or renamed since is the user's; so is any file where the file system has no extended
/// attributes. Callers hold the video's `VideoLock`.
namespace clipwren::LeftoverDownload {

/// `purpose` tells the downloads of one video apart.
void mark(const QString &path, const QString &video, const QString &purpose);
void unmark(const QString &path);

/// The paths of the video's leftover downloads in that folder.
QStringList find(const QString &folder, const QString &video);
/// Whether the file is one of them, and unchanged.
bool isLeftover(const QString &path, const QString &video);
bool isLeftoverFor(const QString &path, const QString &video, const QString &purpose);

} // namespace clipwren::LeftoverDownload
