#pragma once

#include <QByteArray>
#include <QString>

namespace clipwren {

/// Writes a file whole: afterwards the name leads to these bytes, flushed to the disk, or to what
/// was there before. Only the user may read the file, whoever could read the old one.
///
/// Throws `std::system_error`. A process that is killed meanwhile may leave "NAME.new-" and six
/// letters behind, which the next call removes.
void replaceFile(const QString &path, const QByteArray &bytes);

/// Flushes the folder that a file lies in, without which a new name is not safe on the disk.
void flushFolderOf(const QString &path);

} // namespace clipwren
