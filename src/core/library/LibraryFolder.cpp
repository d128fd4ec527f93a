#include "core/library/LibraryFolder.h"

#include <QDir>
#include <QStandardPaths>

namespace clipwren {

QString defaultLibraryFolder()
{
    QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (data.isEmpty())
        data = QDir::home().filePath(QStringLiteral(".local/share"));
    return QDir(data).filePath(QStringLiteral("Clipwren"));
}

} // namespace clipwren
