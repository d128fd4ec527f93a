#include "workflow/download/PromisedDownload.h"

#include "core/formats/FormatOption.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QTextBoundaryFinder>

#include <algorithm>
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

bool isH264(const std::optional<QString> &codec)
{
    return codec && prettyCodecName(*codec) == "H.264"_L1;
}

/// The best picture that the site offers, as the list of formats shows it.
bool hasBestPicture(const MediaInspection &file, const std::optional<VideoInfo> &info)
{
    const std::optional<VideoFormat> best = bestVideoFormat(info);
    if (!best || !best->height)
        return true;
    return file.height == best->height && file.videoCodec
        && prettyCodecName(*file.videoCodec) == prettyCodecName(*best->vcodec);
}

bool keepsPromise(OutputFormat format, const MediaInspection &file,
                  const std::optional<VideoInfo> &info)
{
    switch (format) {
    case OutputFormat::macCompatible:
        return isH264(file.videoCodec);
    case OutputFormat::bestResolution:
    case OutputFormat::proRes422:
        return hasBestPicture(file, info);
    case OutputFormat::audioMP3:
        return true;
    }
    return true;
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
    constexpr int maximumCharacters = 150;
    QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, title);
    for (int count = 0; count < maximumCharacters && characters.position() < title.size(); ++count)
        characters.toNextBoundary();
    return u"%1 %2"_s.arg(title.left(characters.position())).arg(number);
}

} // namespace

PromisedDownload::Result PromisedDownload::run(const YtDlpService::ProgressHandler &onProgress,
                                               const std::stop_token &stop) const
{
    constexpr int lastNumber = 99;
    std::optional<QString> title = customTitle;
    std::optional<QString> firstTitle;
    for (int number = 2;; ++number) {
        const QHash<QString, FileIdentity> before = filesIn(outputDirectory);
        const QString path =
            downloader.download(address, outputDirectory, format, title, onProgress, stop);
        const auto earlier = before.constFind(QFileInfo(path).fileName());
        if (earlier == before.constEnd() || identityOf(path) != *earlier)
            return {path, false};
        try {
            if (number > lastNumber || keepsPromise(format, inspector.inspect(path, stop), info))
                return {path, true};
        } catch (const Error &) {
            // No media file at all, so certainly not the one that was asked for.
            if (stop.stop_requested())
                throw CancellationError();
        }
        if (!firstTitle)
            firstTitle = titleIn(path);
        title = numbered(*firstTitle, number);
    }
}

} // namespace clipwren
