#include "workflow/download/PromisedDownload.h"

#include "core/ytdlp/DownloadArguments.h"
#include "workflow/download/FormatPromise.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>

#include <sys/stat.h>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

/// Tells a file that was left alone from one that was written again.
struct FileIdentity {
    ino_t number;
    qint64 changedSeconds;
    qint64 changedNanoseconds;
    bool operator==(const FileIdentity &) const = default;
};

std::optional<FileIdentity> identityOf(const QString &path)
{
    struct stat status { };
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return std::nullopt;
#ifdef __APPLE__
    return FileIdentity{status.st_ino, status.st_ctimespec.tv_sec, status.st_ctimespec.tv_nsec};
#else
    return FileIdentity{status.st_ino, status.st_ctim.tv_sec, status.st_ctim.tv_nsec};
#endif
}

QHash<QString, FileIdentity> filesIn(const QString &directory)
{
    QHash<QString, FileIdentity> files;
    for (const QFileInfo &file : QDir(directory).entryInfoList(QDir::Files)) {
        if (const auto identity = identityOf(file.filePath()))
            files.insert(file.fileName(), *identity);
    }
    return files;
}

/// The title in a file name of the form "Title [id].ext".
QString titleIn(const QString &filePath)
{
    const QString stem = QFileInfo(filePath).completeBaseName();
    const qsizetype bracket = stem.lastIndexOf(u" ["_s);
    return bracket > 0 ? stem.left(bracket) : stem;
}

/// Room is left for the number: a title that is cut again afterwards would stay the same for ever.
QString numbered(const QString &title, int number)
{
    constexpr qsizetype maximumBytes = 150;
    return u"%1 %2"_s.arg(firstBytes(title, maximumBytes)).arg(number);
}

/// The file that stands for the download of the same video under another title.
QString pathWithTitle(const QString &filePath, const QString &title)
{
    const QFileInfo file(filePath);
    return file.path() + u'/' + fileStem(title) + file.fileName().sliced(titleIn(filePath).size());
}

} // namespace

PromisedDownload::Result PromisedDownload::run(const YtDlpService::ProgressHandler &onProgress,
                                               const std::stop_token &stop) const
{
    const auto downloadAs = [&](const std::optional<QString> &title) -> Result {
        const QHash<QString, FileIdentity> before = filesIn(outputDirectory);
        const QString path = downloader.download(
            address, outputDirectory, requestedFormat(format, info), title, onProgress, stop);
        const auto earlier = before.constFind(QFileInfo(path).fileName());
        return {path, earlier != before.constEnd() && identityOf(path) == *earlier};
    };

    const Result first = downloadAs(customTitle);
    if (!first.wasThereBefore || fits(first.filePath, stop))
        return first;
    const QString firstTitle = titleIn(first.filePath);
    for (int number = 2;; ++number) {
        const QString title = numbered(firstTitle, number);
        const QString path = pathWithTitle(first.filePath, title);
        if (QFileInfo::exists(path)) {
            if (fits(path, stop))
                return {path, true};
            continue;
        }
        const Result again = downloadAs(title);
        if (again.wasThereBefore)
            throw Error(u"Another file is in the way: %1"_s.arg(again.filePath));
        return again;
    }
}

bool PromisedDownload::fits(const QString &filePath, const std::stop_token &stop) const
{
    try {
        return keepsPromise(format, inspector.inspect(filePath, stop), info);
    } catch (const Error &) {
        // No media file at all, so certainly not the one that was asked for.
        if (stop.stop_requested())
            throw CancellationError();
        return false;
    }
}

} // namespace clipwren
