#include "core/library/LibraryFolder.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <filesystem>
#include <system_error>

namespace clipwren {

using namespace Qt::StringLiterals;

QString defaultLibraryFolder()
{
    QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (data.isEmpty())
        data = QDir::home().filePath(u".local/share"_s);
    return QDir(data).filePath(u"Clipwren"_s);
}

void createFolder(const QString &path)
{
    // QDir does not tell why it fails.
    std::error_code error;
    std::filesystem::create_directories(QFile::encodeName(path).toStdString(), error);
    if (error)
        throw std::system_error(error);
}

} // namespace clipwren
