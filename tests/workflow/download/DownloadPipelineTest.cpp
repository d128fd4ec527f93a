#include "workflow/download/DownloadPipeline.h"

#include "workflow/download/DownloaderFixture.h"

#include <cerrno>
#include <cstring>
#include <sys/wait.h>
#include <unistd.h>

namespace clipwren::test {
namespace {

using namespace Qt::StringLiterals;

/// The pipeline as its view works it.
using DownloadPipelineTest = DownloaderFixture;

TEST_F(DownloadPipelineTest, processesOnlyWhatNeedsIt)
{
    const QString proRes = u"Encoding to Apple ProRes 422"_s;
    const std::tuple<QString, std::optional<TrimRange>, QString, QString, bool> cases[] = {
        {u"bestResolution"_s, {}, u"Downloading"_s, u"Talk [id1].mp4"_s, false},
        {u"bestResolution"_s, TrimRange{10, 10.04}, u"Downloading"_s, u"Talk [id1].mp4"_s, false},
        {u"audioMP3"_s, TrimRange{1, 5}, u"Downloading"_s, u"Talk [id1].mp3"_s, false},
        {u"proRes422"_s, {}, proRes, u"Talk [id1].mov"_s, false},
        {u"proRes422"_s, TrimRange{1, 5}, proRes, u"Talk [id1] — trimmed.mov"_s, true},
        {u"macCompatible"_s, TrimRange{1, 5}, u"Trimming"_s, u"Talk [id1] — trimmed.mp4"_s, true},
    };
    for (const auto &[format, trim, heading, fileName, isTrimmed] : cases) {
        SCOPED_TRACE(fileName.toStdString());
        startOver();
        makeReady(format);
        const DownloadRecord record = download(trim);
        EXPECT_EQ(view->phaseLabel(), heading);
        EXPECT_EQ(view->downloadStatus(), QString());
        EXPECT_EQ(QFileInfo(record.filePath).fileName(), fileName);
        EXPECT_EQ(record.trimStart.has_value(), isTrimmed);
        EXPECT_EQ(record.durationSeconds, 60.5);
        // The file is there, and nothing else is left.
        EXPECT_EQ(files(), QStringList{fileName});
    }
}

TEST_F(DownloadPipelineTest, namesTheFileAndTheRecordByTheTypedTitle)
{
    const std::tuple<QString, QString, QString> cases[] = {
        {u"Talk"_s, u"Talk"_s, u"Talk [id1].mp4"_s},
        {u" "_s, u"Talk"_s, u"Talk [id1].mp4"_s},
        {u" 100%: mine "_s, u"100%: mine"_s, u"100%- mine [id1].mp4"_s},
        {u"one\r\ntwo\u2028\u2029three\v\u0085four\n"_s, u"one two three four"_s,
         u"one two three four [id1].mp4"_s},
        {u"a/\u0301b/\u200dc"_s, u"a/\u0301b/\u200dc"_s, u"a-\u0301b-\u200dc [id1].mp4"_s},
    };
    for (const auto &[typed, title, fileName] : cases) {
        makeReady();
        view->setCustomTitle(typed);
        const DownloadRecord record = download();
        EXPECT_EQ(record.title, title);
        EXPECT_EQ(QFileInfo(record.filePath).fileName(), fileName);
    }
    // The site's own title counts as typed where it has lines: the tool prints the path in one.
    fake.onLookup(u"echo '{\"title\":\"Talk\\nof\\u2028it\"}'"_s);
    makeReady();
    EXPECT_EQ(view->customTitle(), u"Talk of it"_s);
    EXPECT_EQ(downloadedName(), u"Talk of it [id1].mp4"_s);
    // Without any title, the file gives the record's.
    startOver();
    fake.history.clear();
    fake.onLookup(u"echo '{}'"_s);
    makeReady();
    EXPECT_EQ(download().title, u"Talk [id1].mp4"_s);
    EXPECT_EQ(fake.history.entries().value(0).title, address);
}

TEST_F(DownloadPipelineTest, cancelsADownloadAndStartsItAgain)
{
    fake.onDownload(u"echo part > \"$file.part\"; echo '10%||NA||NA'; exec sleep 60"_s);
    makeReady();
    ASSERT_TRUE(startAndProgress());
    EXPECT_EQ(fake.desktop.activities, 1);
    EXPECT_EQ(cancel(), u"Cancelled"_s);
    EXPECT_FALSE(view->errorLog());
    EXPECT_EQ(fake.desktop.activities, 0);
    EXPECT_EQ(fake.desktop.notifications, QStringList());
    EXPECT_EQ(files(), QStringList{u"Talk [id1].mp4.part"_s});
    EXPECT_TRUE(fake.store.records().isEmpty());

    fake.onDownload(FakeDownloader::defaultDownload());
    view->start();
    EXPECT_FALSE(view->errorMessage());
    EXPECT_EQ(view->downloadStatus(), u"Starting…"_s);
    EXPECT_TRUE(reaches(*view, Phase::done));
}

TEST_F(DownloadPipelineTest, aLookupSilencesTheDownload)
{
    fake.onDownload(u"echo '10%||NA||NA'; exec sleep 60"_s);
    makeReady();
    ASSERT_TRUE(startAndProgress());
    lookUp();
    settle();
    EXPECT_EQ(view->phase(), Phase::confirming);
    EXPECT_FALSE(view->errorMessage());
    EXPECT_EQ(fake.desktop.activities, 0);
}

TEST_F(DownloadPipelineTest, cancelsBetweenTheDownloadAndItsProcessing)
{
    makeReady(u"proRes422"_s);
    QObject::connect(&*view, &DownloaderView::changed, &*view, [this] {
        if (view->phase() != Phase::downloading || view->downloadProgress() <= 0)
            return;
        // The download has ended, and we are about to hear of it.
        EXPECT_TRUE(BackgroundTask::waitForAll(std::chrono::seconds(10)));
        view->cancelDownload();
    });
    EXPECT_EQ(failure(), u"Cancelled"_s);
    EXPECT_TRUE(fake.store.records().isEmpty());
}

TEST_F(DownloadPipelineTest, believesNoPathThatCannotBeTheFile)
{
    const QString folder = fake.downloadFolder();
    QDir().mkpath(folder + u"/real"_s);
    ASSERT_TRUE(QFile::link(fake.tools.path(u"yt-dlp"_s), folder + u"/mine.mp4"_s));
    ASSERT_TRUE(QFile::link(folder, fake.tools.path(u"link"_s)));
    fake.tools.write(u"elsewhere.mp4"_s, u"whole"_s);
    const QString noFile = u"which is no file."_s;
    const QString elsewhere = u"which is not in the downloads folder."_s;
    const std::tuple<QString, QString> cases[] = {
        {u"$file"_s, {}},
        {folder + u"/real/../Talk [id1].mp4"_s, {}},
        {fake.tools.path(u"link/Talk [id1].mp4"_s), {}},
        {folder + u"/mine.mp4"_s, {}},
        {u"Talk [id1].mp4"_s, noFile},
        {u"${file##*/}"_s, noFile},
        {u"$file "_s, noFile},
        {u"$file.mkv"_s, noFile},
        {folder, noFile},
        {u"/dev/null"_s, noFile},
        {u"/etc/passwd"_s, elsewhere},
        {fake.tools.path(u"elsewhere.mp4"_s), elsewhere},
        {folder + u"/../../elsewhere.mp4"_s, noFile},
        {folder + u"/empty.mp4"_s, u"yt-dlp saved an empty file"_s},
    };
    for (const auto &[path, error] : cases) {
        SCOPED_TRACE(path.toStdString());
        fake.onDownload(
            u"echo old > \"$file\"; : > \"${file%/*}/empty.mp4\"\necho \"filepath:%1\""_s.arg(
                path));
        makeReady(u"proRes422"_s);
        view->start();
        ASSERT_TRUE(reaches(*view, error.isEmpty() ? Phase::done : Phase::ready));
        EXPECT_TRUE(view->errorMessage().value_or(QString()).contains(error));
        EXPECT_EQ(fake.store.records().size(), error.isEmpty() ? 1 : 0);
        fake.store.clear();
    }
    EXPECT_TRUE(files().contains(u"mine.mp4"_s));
}

TEST_F(DownloadPipelineTest, savesAVideoOneAfterTheOther)
{
    const auto isLocked = [&] {
        return !QDir(fake.downloadFolder())
                    .entryList({u"*.lock"_s}, QDir::Files | QDir::Hidden)
                    .isEmpty();
    };
    makeReady();
    auto other = VideoLock::acquire(fake.downloadFolder(), address, {}, {});
    VideoLock::removeAfterKill(fake.downloadFolder());
    EXPECT_TRUE(isLocked());
    const auto waits = [&] {
        view->start();
        return QTest::qWaitFor([&] {
            return view->downloadStatus() == u"Another Clipwren is saving this video. Waiting…"_s;
        });
    };
    ASSERT_TRUE(waits());
    EXPECT_EQ(view->phaseLabel(), u"Waiting"_s);
    EXPECT_EQ(cancel(), u"Cancelled"_s);
    ASSERT_TRUE(waits());
    EXPECT_EQ(files(), QStringList());
    other.reset();
    ASSERT_TRUE(reaches(*view, Phase::done));
    EXPECT_EQ(view->phaseLabel(), u"Downloading"_s);
    EXPECT_TRUE(isLocked());
    view->resetAll();
    EXPECT_FALSE(isLocked());

    // What a killed process left is no lock.
    const auto leaveLock = [&] {
        if (const pid_t child = ::fork(); child != 0)
            return ::waitpid(child, nullptr, 0) == child && isLocked();
        const auto killed = VideoLock::acquire(fake.downloadFolder(), address, {}, {});
        ::_exit(0);
    };
    ASSERT_TRUE(leaveLock());
    VideoLock::removeAfterKill(fake.downloadFolder());
    EXPECT_FALSE(isLocked());
    ASSERT_TRUE(leaveLock());
    makeReady();
    download();
    view->resetAll();
    EXPECT_FALSE(isLocked());
}

TEST_F(DownloadPipelineTest, keepsALogOfEveryFailure)
{
    const QString whole = FakeDownloader::defaultDownload();
    // What the downloader and ffprobe do, what is said, whose log is shown, and what is left.
    const std::tuple<QString, QString, QString, QString, QString, QStringList> cases[] = {
        {u"echo '[debug] a' >&2; echo 'ERROR: gone' >&2; exit 1"_s,
         {},
         u"Process failed (exit 1): ERROR: gone"_s,
         u"yt-dlp"_s,
         u"[debug] a\nERROR: gone\n"_s,
         {}},
        {u"echo nothing done"_s,
         {},
         u"yt-dlp finished without reporting an output path"_s,
         u"yt-dlp"_s,
         u"nothing done\n"_s,
         {}},
        {whole,
         {},
         u"Process failed (exit 1): No space left on device"_s,
         u"ffmpeg"_s,
         u"No space left on device\nConversion failed!\n"_s,
         {u"Talk [id1].mp4"_s}},
        {whole,
         u"echo 'moov atom not found' >&2; exit 1"_s,
         u"The downloaded file does not play"_s,
         u"ffprobe"_s,
         u"moov atom not found\n"_s,
         {u"Talk [id1].mp4"_s}},
    };
    fake.onConvert(u"echo partly > \"$output\"; echo 'No space left on device' >&2;"
                   " echo 'Conversion failed!' >&2; exit 1"_s);
    for (const auto &[script, probe, message, tool, log, left] : cases) {
        SCOPED_TRACE(message.toStdString());
        startOver();
        fake.onDownload(script);
        if (!probe.isEmpty())
            fake.tools.add(u"ffprobe"_s, probe);
        makeReady();
        view->setTrimEnabled(true);
        EXPECT_TRUE(failure().startsWith(message));
        EXPECT_EQ(fake.desktop.notifications.last(),
                  u"Download failed | %1 | "_s.arg(*view->errorMessage()));
        view->showErrorLog();
        EXPECT_EQ(view->shownLog().tool, tool);
        EXPECT_EQ(view->shownLog().text, log);
        EXPECT_TRUE(fake.store.records().isEmpty());
        EXPECT_EQ(files(), left);
    }
    // No tool was at work.
    startOver();
    writeFile(fake.downloadFolder(), {});
    EXPECT_TRUE(failure().endsWith(QString::fromLocal8Bit(std::strerror(ENOTDIR))));
    EXPECT_EQ(view->errorLog()->tool, QString());
    EXPECT_EQ(view->errorLog()->text, view->errorMessage());
}

TEST_F(DownloadPipelineTest, neverRemovesAFileThatWasThereBefore)
{
    for (const bool recorded : {true, false}) {
        makeReady();
        download();
        if (!recorded)
            fake.store.clear();
        makeReady();
        download(TrimRange{1, 5});
        EXPECT_TRUE(files().contains(u"Talk [id1].mp4"_s));
    }
}

TEST_F(DownloadPipelineTest, givesEachFormatAFileOfItsOwn)
{
    const auto downloadAs = [&](const QString &format, const QString &codec, int height) {
        makeReady(format);
        fake.onProbe(codec, height);
        settle();
        const int runs = fake.tools.runCount(u"yt-dlp"_s);
        const QString name = downloadedName();
        EXPECT_LE(fake.tools.runCount(u"yt-dlp"_s), runs + 2) << name.toStdString();
        return name;
    };
    EXPECT_EQ(downloadAs(u"bestResolution"_s, u"vp9"_s, 2160), u"Talk [id1].mp4"_s);
    // Every file that is there is a VP9 one.
    EXPECT_EQ(downloadAs(u"macCompatible"_s, u"vp9"_s, 2160), u"Talk 2 [id1].mp4"_s);
    EXPECT_EQ(downloadAs(u"macCompatible"_s, u"vp9"_s, 2160), u"Talk 3 [id1].mp4"_s);
    // Every file that is there is what was asked for.
    EXPECT_EQ(downloadAs(u"macCompatible"_s, u"h264"_s, 1080), u"Talk [id1].mp4"_s);
    EXPECT_EQ(downloadAs(u"bestResolution"_s, u"vp9"_s, 2160), u"Talk [id1].mp4"_s);
    EXPECT_EQ(downloadAs(u"bestResolution"_s, u"vp9"_s, 1080), u"Talk 4 [id1].mp4"_s);
    // What is there tells nothing.
    makeReady();
    fake.tools.add(u"ffprobe"_s, u"echo what"_s);
    EXPECT_EQ(downloadedName(), u"Talk 5 [id1].mp4"_s);
}

TEST_F(DownloadPipelineTest, takesOnlyAWholeFileForTheDownload)
{
    const QString mp4 = u"mov,mp4,m4a"_s;
    const QString none = u"null"_s;
    // A record names the file that is there, or one of that name that was there before.
    enum Recorded { no, yes, before };
    // The format, what the look-up says of the length, the container and length of the file that
    // is there, and the file that is saved.
    const std::tuple<QString, QString, Recorded, QString, double, QString> cases[] = {
        {u"audioMP3"_s, u"60"_s, no, u"mp3"_s, 60.5, u"Talk [id1].mp3"_s},
        {u"audioMP3"_s, u"60"_s, no, u"mp3"_s, 7.5, u"Talk 2 [id1].mp3"_s},
        {u"audioMP3"_s, u"60"_s, yes, u"mp3"_s, 7.5, u"Talk [id1].mp3"_s},
        {u"audioMP3"_s, u"60"_s, before, u"mp3"_s, 7.5, u"Talk 2 [id1].mp3"_s},
        {u"audioMP3"_s, none, no, u"mp3"_s, 60, u"Talk 2 [id1].mp3"_s},
        {u"audioMP3"_s, none, yes, u"mp3"_s, 60, u"Talk [id1].mp3"_s},
        {u"bestResolution"_s, u"60"_s, no, mp4, 61, u"Talk [id1].mp4"_s},
        {u"bestResolution"_s, u"60"_s, yes, u"mpegts"_s, 60, u"Talk 2 [id1].mp4"_s},
        {u"proRes422"_s, u"60"_s, no, u"mpegts"_s, 60, u"Talk 2 [id1].mov"_s},
    };
    for (const auto &[format, length, recorded, container, seconds, fileName] : cases) {
        SCOPED_TRACE(fileName.toStdString());
        startOver();
        fake.onLookup(u"echo '{\"title\":\"Talk\",\"duration\":%1}'"_s.arg(length));
        makeReady(format == u"proRes422" ? u"bestResolution"_s : format);
        DownloadRecord record = download();
        fake.store.clear();
        if (recorded == before)
            record.createdAt = record.createdAt.addSecs(-60);
        if (recorded != no)
            fake.store.add(record);
        fake.onProbe(u"h264"_s, 1080, container, seconds);
        makeReady(format);
        EXPECT_EQ(downloadedName(), fileName);
    }
}

TEST_F(DownloadPipelineTest, whatACancelledDownloadLeftMakesRoomForTheNext)
{
    fake.onProbe({}, 0, u"mp3"_s, 7.5);
    fake.onDownload(u"echo cut off > \"$file\"; echo '10%||NA||NA'; exec sleep 60"_s);
    makeReady(u"audioMP3"_s);
    ASSERT_TRUE(startAndProgress());
    cancel();

    fake.onDownload(FakeDownloader::defaultDownload());
    EXPECT_EQ(downloadedName(), u"Talk [id1].mp3"_s);
    EXPECT_EQ(files(), QStringList{u"Talk [id1].mp3"_s});
    EXPECT_EQ(read(u"Talk [id1].mp3"_s), "old\n");
}

TEST_F(DownloadPipelineTest, aCancelledDownloadLeavesAFileOfBeforeAlone)
{
    const QString mine = u"Talk [id1].mp3"_s;
    ASSERT_TRUE(QDir().mkpath(fake.downloadFolder()));
    writeFile(path(mine), "mine");
    fake.onProbe({}, 0, u"mp3"_s, 7.5);
    fake.onDownload(u"echo '10%||NA||NA'; exec sleep 60"_s);
    makeReady(u"audioMP3"_s);
    ASSERT_TRUE(startAndProgress());
    cancel();

    fake.onDownload(FakeDownloader::defaultDownload());
    EXPECT_EQ(downloadedName(), u"Talk 2 [id1].mp3"_s);
    EXPECT_EQ(read(mine), "mine");
}

} // namespace
} // namespace clipwren::test
