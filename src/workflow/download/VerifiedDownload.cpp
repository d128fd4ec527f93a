#include "workflow/download/VerifiedDownload.h"

#include "core/Logging.h"
#include "core/process/ProcessRunner.h"
#include "core/ytdlp/DownloadArguments.h"
#include "workflow/download/OfferedFormats.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>

#include <algorithm>
#include <cmath>
#include <sys/stat.h>
#include <utility>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

/// Tells an unchanged file from one that was written again.
struct FileIdentity {
    quint64 number;
    qint64 changedMilliseconds; ///< since 1970; a change of the file's name or owner counts, too
    bool operator==(const FileIdentity &) const = default;
};

std::optional<FileIdentity> identityOf(const QString &path)
{
    struct stat status { };
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return std::nullopt;
    const timespec changed = status.st_ctim;
    return FileIdentity{status.st_ino, changed.tv_sec * 1'000 + changed.tv_nsec / 1'000'000};
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

/// Truncates the title so that the number is not cut off again by `fileStem`.
QString numbered(const QString &title, int number)
{
    constexpr qsizetype maximumBytes = 150;
    return u"%1 %2"_s.arg(firstBytes(title, maximumBytes)).arg(number);
}

/// The path that a download of the same video under another title would have.
QString pathWithTitle(const QString &filePath, const QString &title)
{
    const QFileInfo file(filePath);
    return file.path() + u'/' + fileStem(title) + file.fileName().sliced(titleIn(filePath).size());
}

/// ffprobe's name of the container that belongs to an extension. Other extensions are not checked.
constexpr std::pair<QLatin1StringView, QLatin1StringView> containers[] = {
    {"mp4"_L1, "mp4"_L1}, {"m4a"_L1, "m4a"_L1},   {"mov"_L1, "mov"_L1},
    {"mp3"_L1, "mp3"_L1}, {"webm"_L1, "webm"_L1}, {"mkv"_L1, "matroska"_L1},
};

/// False for the raw fragments of a stream, which the tool has not remuxed yet.
bool hasItsContainer(const QString &filePath, const MediaInspection &file)
{
    const QString extension = QFileInfo(filePath).suffix();
    const QStringList found = file.container.value_or(QString()).split(u',');
    return std::none_of(std::begin(containers), std::end(containers), [&](const auto &row) {
        return extension == row.first && !found.contains(row.second);
    });
}

// Sites round durations, and sound may be a little longer than the picture.
constexpr double toleranceSeconds = 1.5;

/// How much shorter the file is than the site says; negative for a longer file.
std::optional<double> missingSeconds(const MediaInspection &file,
                                     const std::optional<VideoInfo> &info)
{
    const std::optional<double> duration = info ? info->duration : std::nullopt;
    return duration && file.duration ? std::optional(*duration - *file.duration) : std::nullopt;
}

} // namespace

void DownloadAttempts::add(const QString &directory)
{
    if (filesBefore)
        return;
    const QStringList names = QDir(directory).entryList(QDir::Files);
    filesBefore.emplace(names.begin(), names.end());
}

VerifiedDownload::Result VerifiedDownload::run(const YtDlpService::ProgressHandler &onProgress,
                                               const std::stop_token &stop) const
{
    const auto inspected = [&](const QString &path) -> std::optional<MediaInspection> {
        try {
            return inspector.inspect(path, stop);
        } catch (const Error &error) {
            // Not a media file, so not the one that was asked for.
            if (stop.stop_requested())
                throw CancellationError();
            qCDebug(processLog) << "No media file:" << errorDescription(error);
            return std::nullopt;
        }
    };
    const auto matches = [&](const QString &path, const std::optional<MediaInspection> &file) {
        return file && isComplete(path, *file) && matchesFormat(format, *file, info);
    };

    Result first = downloadAs(customTitle, onProgress, stop);
    if (!first.existedBefore)
        return first;
    const auto file = inspected(first.filePath);
    if (matches(first.filePath, file))
        return first;
    if (isLeftover(first.filePath, file)) {
        QFile::remove(first.filePath);
        return downloadAs(customTitle, onProgress, stop);
    }
    const QString firstTitle = titleIn(first.filePath);
    for (int number = 2;; ++number) {
        const QString title = numbered(firstTitle, number);
        const QString path = pathWithTitle(first.filePath, title);
        if (!QFileInfo::exists(path)) {
            Result again = downloadAs(title, onProgress, stop);
            if (again.existedBefore)
                throw Error(QCoreApplication::translate("VerifiedDownload",
                                                        "Another file is in the way: %1")
                                .arg(again.filePath));
            return again;
        }
        if (matches(path, inspected(path)))
            return {path, true};
    }
}

VerifiedDownload::Result
VerifiedDownload::downloadAs(const std::optional<QString> &title,
                             const YtDlpService::ProgressHandler &onProgress,
                             const std::stop_token &stop) const
{
    const auto films = keptFilms(title, stop);
    const QHash<QString, FileIdentity> before = filesIn(outputDirectory);
    const QString path = downloader.download(
        address, outputDirectory, requestedFormat(format, info), title, onProgress, stop);
    const auto found = before.constFind(QFileInfo(path).fileName());
    if (found != before.constEnd() && identityOf(path) == *found)
        return {path, true};
    checkPlayable(path, stop);
    return {path, false};
}

/// Where only the sound is saved, yt-dlp converts an existing film of that name and deletes it.
/// Protects such films; partial files of earlier attempts are not protected.
std::list<KeptFile> VerifiedDownload::keptFilms(const std::optional<QString> &title,
                                                const std::stop_token &stop) const
{
    std::list<KeptFile> films;
    if (!traits(format).isAudioOnly)
        return films;
    const QString siteTitle = info ? info->title.value_or(QString()) : QString();
    const QString start = (title ? fileStem(*title) : siteFileStem(siteTitle)) + u" ["_s;
    for (const QFileInfo &file : QDir(outputDirectory).entryInfoList(QDir::Files)) {
        if (!file.fileName().startsWith(start) || file.suffix() == traits(format).extension)
            continue;
        const bool isOfEarlierAttempt =
            earlier.filesBefore && !earlier.filesBefore->contains(file.fileName());
        if (isRecorded(file.filePath()) || (!isOfEarlierAttempt && isFilm(file.filePath(), stop)))
            films.emplace_back(file.filePath());
    }
    return films;
}

bool VerifiedDownload::isFilm(const QString &filePath, const std::stop_token &stop) const
{
    try {
        return !filePath.endsWith(".part"_L1) && inspector.lengths(filePath, stop).hasPicture;
    } catch (const std::exception &error) {
        if (stop.stop_requested())
            throw CancellationError();
        qCDebug(processLog) << "No film:" << errorDescription(error);
        return false;
    }
}

/// ffmpeg, and so yt-dlp, report success even when the disk became full while the last bytes were
/// written.
void VerifiedDownload::checkPlayable(const QString &filePath, const std::stop_token &stop) const
{
    if (!QFileInfo::exists(filePath))
        return;
    try {
        inspector.inspect(filePath, stop);
    } catch (const ProcessRunner::ProcessError &failure) {
        if (stop.stop_requested())
            throw CancellationError();
        const QString sentence =
            QCoreApplication::translate(
                "VerifiedDownload",
                "The downloaded file does not play; the disk may have been full: “%1”")
                .arg(filePath);
        throw Error(sentence, sentence, failure.toolLog());
    } catch (const std::exception &error) {
        // ffprobe could not be run, which says nothing about the file.
        qCWarning(processLog) << "The download is not checked:" << errorDescription(error);
    }
}

/// An interrupted conversion leaves a valid but shorter file.
bool VerifiedDownload::isComplete(const QString &filePath, const MediaInspection &file) const
{
    if (!hasItsContainer(filePath, file))
        return false;
    if (isRecorded(filePath))
        return true;
    const std::optional<double> missing = missingSeconds(file, info);
    return missing && std::abs(*missing) <= toleranceSeconds;
}

/// Whether this is the partial file of an earlier attempt: it has the name of this download, was
/// created during that attempt, and is certainly incomplete. A file that may belong to somebody
/// else is none: one of unknown length, or written while we waited for the lock.
bool VerifiedDownload::isLeftover(const QString &filePath,
                                  const std::optional<MediaInspection> &file) const
{
    const auto identity = identityOf(filePath);
    if (!identity || identity->changedMilliseconds > startedAt.toMSecsSinceEpoch()
        || !earlier.filesBefore || earlier.filesBefore->contains(QFileInfo(filePath).fileName())
        || isRecorded(filePath))
        return false;
    return !file || !hasItsContainer(filePath, *file)
        || missingSeconds(*file, info).value_or(0) > toleranceSeconds;
}

/// A record is written when its file is complete, so a file that changed later is another one.
bool VerifiedDownload::isRecorded(const QString &filePath) const
{
    const auto identity = identityOf(filePath);
    if (!identity)
        return false;
    // The library file stores whole seconds.
    return std::any_of(records.begin(), records.end(), [&](const DownloadRecord &record) {
        return record.filePath == filePath
            && identity->changedMilliseconds <= record.createdAt.toMSecsSinceEpoch() + 1'000;
    });
}

} // namespace clipwren
