#include "workflow/download/PromisedDownload.h"

#include "core/process/ProcessRunner.h"
#include "core/ytdlp/DownloadArguments.h"
#include "workflow/download/FormatPromise.h"

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

/// Tells a file that was left alone from one that was written again.
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
#ifdef __APPLE__
    const timespec changed = status.st_ctimespec;
#else
    const timespec changed = status.st_ctim;
#endif
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

/// What ffprobe calls the container of a whole file with that extension; other extensions are not
/// judged.
constexpr std::pair<QLatin1StringView, QLatin1StringView> containers[] = {
    {"mp4"_L1, "mp4"_L1}, {"m4a"_L1, "m4a"_L1},   {"mov"_L1, "mov"_L1},
    {"mp3"_L1, "mp3"_L1}, {"webm"_L1, "webm"_L1}, {"mkv"_L1, "matroska"_L1},
};

/// A stream's pieces in one file wait to be put into the container that its name says.
bool hasItsContainer(const QString &filePath, const MediaInspection &file)
{
    const QString extension = QFileInfo(filePath).suffix();
    const QStringList found = file.container.value_or(QString()).split(u',');
    return std::none_of(std::begin(containers), std::end(containers), [&](const auto &row) {
        return extension == row.first && !found.contains(row.second);
    });
}

// Sites round, and sound may be a little longer than the picture.
constexpr double toleranceSeconds = 1.5;

/// Of what the site says of the length; negative for a file that is longer.
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

PromisedDownload::Result PromisedDownload::run(const YtDlpService::ProgressHandler &onProgress,
                                               const std::stop_token &stop) const
{
    const auto inspected = [&](const QString &path) -> std::optional<MediaInspection> {
        try {
            return inspector.inspect(path, stop);
        } catch (const Error &) {
            // No media file at all, so certainly not the one that was asked for.
            if (stop.stop_requested())
                throw CancellationError();
            return std::nullopt;
        }
    };
    const auto fits = [&](const QString &path, const std::optional<MediaInspection> &file) {
        return file && isWhole(path, *file) && keepsPromise(format, *file, info);
    };

    const Result first = downloadAs(customTitle, onProgress, stop);
    if (!first.wasThereBefore)
        return first;
    const auto file = inspected(first.filePath);
    if (fits(first.filePath, file))
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
            const Result again = downloadAs(title, onProgress, stop);
            if (again.wasThereBefore)
                throw Error(u"Another file is in the way: %1"_s.arg(again.filePath));
            return again;
        }
        if (fits(path, inspected(path)))
            return {path, true};
    }
}

PromisedDownload::Result
PromisedDownload::downloadAs(const std::optional<QString> &title,
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
    checkThatItPlays(path, stop);
    return {path, false};
}

/// The tool takes the sound from a film of that name that is there already, and removes the film.
/// What an attempt before this one left is no such film.
std::list<KeptFile> PromisedDownload::keptFilms(const std::optional<QString> &title,
                                                const std::stop_token &stop) const
{
    std::list<KeptFile> films;
    if (format != OutputFormat::audioMP3)
        return films;
    const QString siteTitle = info ? info->title.value_or(QString()) : QString();
    const QString start = (title ? fileStem(*title) : siteFileStem(siteTitle)) + u" ["_s;
    for (const QFileInfo &file : QDir(outputDirectory).entryInfoList(QDir::Files)) {
        if (!file.fileName().startsWith(start) || file.suffix() == "mp3"_L1)
            continue;
        const bool isLeft = earlier.filesBefore && !earlier.filesBefore->contains(file.fileName());
        if (isRecorded(file.filePath()) || (!isLeft && isFilm(file.filePath(), stop)))
            films.emplace_back(file.filePath());
    }
    return films;
}

bool PromisedDownload::isFilm(const QString &filePath, const std::stop_token &stop) const
{
    try {
        return !filePath.endsWith(".part"_L1) && inspector.lengths(filePath, stop).hasPicture;
    } catch (const std::exception &) {
        if (stop.stop_requested())
            throw CancellationError();
        return false;
    }
}

/// Where the disk is full at the very end, ffmpeg and so the tool report success all the same.
void PromisedDownload::checkThatItPlays(const QString &filePath, const std::stop_token &stop) const
{
    if (!QFileInfo::exists(filePath))
        return;
    try {
        inspector.inspect(filePath, stop);
    } catch (const ProcessRunner::ProcessError &failure) {
        if (stop.stop_requested())
            throw CancellationError();
        const QString sentence =
            u"The downloaded file does not play; the disk may have been full: “%1”"_s.arg(filePath);
        throw Error(sentence, sentence, failure.toolLog());
    } catch (const std::exception &) {
        // An inspection that fails for another reason says nothing about the file.
    }
}

/// A conversion that was interrupted leaves a file that is only shorter.
bool PromisedDownload::isWhole(const QString &filePath, const MediaInspection &file) const
{
    if (!hasItsContainer(filePath, file))
        return false;
    if (isRecorded(filePath))
        return true;
    const std::optional<double> missing = missingSeconds(file, info);
    return missing && std::abs(*missing) <= toleranceSeconds;
}

/// Has the very name of this download, came while an earlier attempt ran, and cannot be whole. No
/// file is taken for that which may be another's: whose end is not known to be missing, or which
/// was written while we waited for our turn.
bool PromisedDownload::isLeftover(const QString &filePath,
                                  const std::optional<MediaInspection> &file) const
{
    const auto identity = identityOf(filePath);
    if (!identity || identity->changedMilliseconds > begun.toMSecsSinceEpoch()
        || !earlier.filesBefore || earlier.filesBefore->contains(QFileInfo(filePath).fileName())
        || isRecorded(filePath))
        return false;
    return !file || !hasItsContainer(filePath, *file)
        || missingSeconds(*file, info).value_or(0) > toleranceSeconds;
}

/// A record is written when its file is whole, so a file that was changed later is not it.
bool PromisedDownload::isRecorded(const QString &filePath) const
{
    const auto identity = identityOf(filePath);
    if (!identity)
        return false;
    // The list's file holds whole seconds.
    return std::any_of(records.begin(), records.end(), [&](const DownloadRecord &record) {
        return record.filePath == filePath
            && identity->changedMilliseconds <= record.createdAt.toMSecsSinceEpoch() + 1'000;
    });
}

} // namespace clipwren
