#include "workflow/download/DownloadPipeline.h"

#include "workflow/download/DownloaderFixture.h"

#include <QFileInfo>

#include <sys/wait.h>
#include <unistd.h>

namespace clipwren::test {
namespace {

using namespace Qt::StringLiterals;

/// The pipeline as its view works it.
using DownloadPipelineTest = DownloaderFixture;

TEST_F(DownloadPipelineTest, ProcessesOnlyWhatNeedsIt)
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
        QDir(fake.downloadFolder()).removeRecursively();
        fake.store.clear();
        makeReady();
        view->setOutputFormatRaw(format);
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

TEST_F(DownloadPipelineTest, NamesTheFileAndTheRecordByTheTypedTitle)
{
    const std::tuple<QString, QString, QString> cases[] = {
        {u"Talk"_s, u"Talk"_s, u"Talk [id1].mp4"_s},
        {u" "_s, u"Talk"_s, u"Talk [id1].mp4"_s},
        {u" 100%: mine "_s, u"100%: mine"_s, u"100%- mine [id1].mp4"_s},
    };
    for (const auto &[typed, title, fileName] : cases) {
        makeReady();
        view->setCustomTitle(typed);
        const DownloadRecord record = download();
        EXPECT_EQ(record.title, title);
        EXPECT_EQ(QFileInfo(record.filePath).fileName(), fileName);
    }
    // Without any title, the file gives the record's.
    fake.store.clear();
    fake.history.clear();
    fake.onLookup(u"echo '{}'"_s);
    makeReady();
    EXPECT_EQ(download().title, u"Talk [id1].mp4"_s);
    EXPECT_EQ(fake.history.entries().value(0).title, address);
}

TEST_F(DownloadPipelineTest, CancelsADownloadAndStartsItAgain)
{
    fake.onDownload(u"echo part > \"$file.part\"; echo '10%||NA||NA'; exec sleep 60"_s);
    makeReady();
    view->start();
    ASSERT_TRUE(QTest::qWaitFor([&] { return view->downloadProgress() > 0; }));
    view->cancelDownload();
    ASSERT_TRUE(reaches(*view, Phase::ready));
    EXPECT_EQ(view->errorMessage(), u"Cancelled"_s);
    EXPECT_EQ(files(), QStringList{u"Talk [id1].mp4.part"_s});
    EXPECT_TRUE(fake.store.records().isEmpty());

    fake.onDownload(FakeDownloader::defaultDownload());
    view->start();
    EXPECT_FALSE(view->errorMessage());
    EXPECT_EQ(view->downloadStatus(), u"Starting…"_s);
    EXPECT_TRUE(reaches(*view, Phase::done));
}

TEST_F(DownloadPipelineTest, ALookupSilencesTheDownload)
{
    fake.onDownload(u"echo '10%||NA||NA'; exec sleep 60"_s);
    makeReady();
    view->start();
    ASSERT_TRUE(QTest::qWaitFor([&] { return view->downloadProgress() > 0; }));
    lookUp();
    settle();
    EXPECT_EQ(view->phase(), Phase::confirming);
    EXPECT_FALSE(view->errorMessage());
}

TEST_F(DownloadPipelineTest, CancelsBetweenTheDownloadAndItsProcessing)
{
    makeReady();
    view->setOutputFormatRaw(u"proRes422"_s);
    QObject::connect(&*view, &DownloaderView::changed, &*view, [this] {
        if (view->phase() != Phase::downloading || view->downloadProgress() <= 0)
            return;
        // The download has ended, and we are about to hear of it.
        EXPECT_TRUE(BackgroundTask::waitForAll(std::chrono::seconds(10)));
        view->cancelDownload();
    });
    view->start();
    ASSERT_TRUE(reaches(*view, Phase::ready));
    EXPECT_EQ(view->errorMessage(), u"Cancelled"_s);
    EXPECT_TRUE(fake.store.records().isEmpty());
}

TEST_F(DownloadPipelineTest, BelievesNoPathThatCannotBeTheFile)
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
        makeReady();
        view->setOutputFormatRaw(u"proRes422"_s);
        view->start();
        ASSERT_TRUE(reaches(*view, error.isEmpty() ? Phase::done : Phase::ready));
        EXPECT_TRUE(view->errorMessage().value_or(QString()).contains(error));
        EXPECT_EQ(fake.store.records().size(), error.isEmpty() ? 1 : 0);
        fake.store.clear();
    }
    EXPECT_TRUE(files().contains(u"mine.mp4"_s));
}

TEST_F(DownloadPipelineTest, SavesAVideoOneAfterTheOther)
{
    const auto isLocked = [&] {
        return !QDir(fake.downloadFolder())
                    .entryList({u"*.lock"_s}, QDir::Files | QDir::Hidden)
                    .isEmpty();
    };
    makeReady();
    auto other = VideoLock::take(fake.downloadFolder(), address, {}, {});
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
    view->cancelDownload();
    ASSERT_TRUE(reaches(*view, Phase::ready));
    EXPECT_EQ(view->errorMessage(), u"Cancelled"_s);
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
        const auto killed = VideoLock::take(fake.downloadFolder(), address, {}, {});
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

TEST_F(DownloadPipelineTest, KeepsTheDownloadWhenProcessingFails)
{
    fake.onConvert(u"echo partly > \"$output\"; echo broken >&2; exit 1"_s);
    makeReady();
    view->setTrimEnabled(true);
    view->start();
    ASSERT_TRUE(reaches(*view, Phase::ready));
    EXPECT_EQ(view->errorMessage(), u"Process failed (exit 1): broken"_s);
    EXPECT_EQ(files(), QStringList{u"Talk [id1].mp4"_s});
    EXPECT_TRUE(fake.store.records().isEmpty());
}

TEST_F(DownloadPipelineTest, CutsNothingThatTheFilmDoesNotHave)
{
    const QString download = u"Talk [id1].mp4"_s;
    const QString clip = u"Talk [id1] — trimmed.mp4"_s;
    const QString ended = u"The video ends before the time range starts."_s;
    const QString nothing = u"The video shows nothing in that time range."_s;
    struct Case {
        QString film; ///< what ffprobe says of the length of the picture and of the whole
        QString cut;
        TrimRange asked;
        double end = 0; ///< in the record
        QString error;
    };
    const QString picture =
        u"{\"streams\":[{\"duration\":\"%1\"}],\"format\":{\"duration\":\"%2\"}}"_s;
    const QString sound = u"{\"streams\":[],\"format\":{\"duration\":\"%1\"}}"_s;
    const Case cases[] = {
        {picture.arg(6).arg(6), picture.arg(4).arg(4), {1, 5}, 5, {}},
        {picture.arg(6).arg(6), picture.arg(5).arg(5), {1, 50}, 6, {}},
        {picture.arg(6).arg(60), picture.arg(5).arg(39), {1, 40}, 40, {}},
        {u"{}"_s, picture.arg(2).arg(5), {1, 50}, 6, {}},
        {sound.arg(60), sound.arg(5), {10, 15}, 15, {}},
        {picture.arg(6).arg(6), picture.arg(1).arg(1), {6, 50}, 0, ended},
        {picture.arg(6).arg(60), picture.arg(1).arg(1), {30, 40}, 0, ended},
        {sound.arg(6), sound.arg(5), {50, 60}, 0, ended},
        // A film of single pictures, and one that does not tell its length.
        {picture.arg(20).arg(20), sound.arg(5), {12, 17}, 0, nothing},
        {u"{}"_s, sound.arg(0), {50, 60}, 0, nothing},
        {u"{}"_s, u"what"_s, {50, 60}, 0, u"ffmpeg wrote a file that does not play."_s},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.film.toStdString() + " " + c.cut.toStdString());
        QDir(fake.downloadFolder()).removeRecursively();
        fake.store.clear();
        fake.tools.add(
            u"ffprobe"_s,
            u"case \"$*\" in *trimmed*) echo '%2' ;; *) echo '%1' ;; esac"_s.arg(c.film, c.cut));
        makeReady();
        view->setTrimEnabled(true);
        view->setTrimRange(c.asked.start, c.asked.end);
        view->start();
        ASSERT_TRUE(reaches(*view, c.error.isEmpty() ? Phase::done : Phase::ready));
        EXPECT_EQ(view->errorMessage().value_or(QString()), c.error);
        EXPECT_EQ(files(), QStringList{c.error.isEmpty() ? clip : download});
        EXPECT_EQ(fake.store.records().value(0).trimEnd.value_or(0), c.end);
    }
}

TEST_F(DownloadPipelineTest, TriesAgainWithWhatItLeft)
{
    const QString left = u"Talk [id1].mp4"_s;
    const QString clip = u"Talk [id1] — trimmed.mp4"_s;
    struct Case {
        const char *what;
        std::function<void()> meanwhile;
        std::optional<TrimRange> trim;
        int downloads; ///< made by the second attempt
        QStringList files;
    };
    const Case cases[] = {
        {"the same again", [] {}, TrimRange{1, 5}, 0, {clip}},
        {"another range", [] {}, TrimRange{2, 3}, 0, {clip}},
        {"no range", [] {}, {}, 0, {left}},
        {"another process",
         [&] {
             view.emplace(fake.environment());
             makeReady();
         },
         TrimRange{1, 5},
         0,
         {clip}},
        {"another title",
         [&] { view->setCustomTitle(u"Mine"_s); },
         TrimRange{1, 5},
         1,
         {u"Mine [id1] — trimmed.mp4"_s}},
        {"another format",
         [&] { view->setOutputFormatRaw(u"audioMP3"_s); },
         TrimRange{1, 5},
         1,
         {u"Talk [id1].mp3"_s}},
        {"changed by the user",
         [&] { QFile(fake.downloadFolder() + u'/' + left).resize(1); },
         TrimRange{1, 5},
         1,
         {clip, left}},
        {"removed by the user",
         [&] { QFile::remove(fake.downloadFolder() + u'/' + left); },
         TrimRange{1, 5},
         1,
         {clip}},
        {"recorded meanwhile",
         [&] {
             DownloadRecord record;
             record.filePath = fake.downloadFolder() + u'/' + left;
             fake.store.add(record);
         },
         TrimRange{1, 5},
         0,
         {clip, left}},
    };
    const QString runs = fake.tools.path(u"yt-dlp.runs-of-downloads"_s);
    fake.onDownload(u"echo >> \"$0.runs-of-downloads\"\n"_s + FakeDownloader::defaultDownload());
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        fake.store.clear();
        QDir(fake.downloadFolder()).removeRecursively();
        fake.onConvert(u"echo out_time_us=1; exec sleep 60"_s);
        makeReady();
        view->setOutputFormatRaw(u"bestResolution"_s);
        view->setTrimEnabled(true);
        view->start();
        ASSERT_TRUE(reaches(*view, Phase::processing));
        view->cancelDownload();
        ASSERT_TRUE(reaches(*view, Phase::ready));
        EXPECT_EQ(files(), QStringList{left});

        c.meanwhile();
        QFile::remove(runs);
        fake.onConvert(u"echo new > \"$output\""_s);
        download(c.trim);
        EXPECT_EQ(QFileInfo(runs).size(), c.downloads);
        EXPECT_EQ(files(), c.files);
        // Nothing is remembered any more.
        view->resetAll();
        EXPECT_EQ(QDir(fake.downloadFolder()).entryList({u".*"_s}, QDir::Files | QDir::Hidden),
                  QStringList());
    }
}

TEST_F(DownloadPipelineTest, NeverRemovesAFileThatWasThereBefore)
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

TEST_F(DownloadPipelineTest, GivesEachClipAFileOfItsOwn)
{
    // A file is what it is high.
    fake.onConvert(u"while [ \"$1\" != -i ]; do shift; done\n"
                   "read height < \"$2\"; echo $height > \"$output\""_s);
    fake.tools.add(
        u"ffprobe"_s,
        u"for file; do :; done; read height < \"$file\"; test $height != half || exit 1\n"
        "echo '{\"streams\":[{\"codec_type\":\"video\",\"width\":1,\"height\":'$height'"
        "}],\"format\":{\"duration\":\"60.5\"}}'"_s);
    const auto save = [&](const QString &format, int height, const std::optional<TrimRange> &trim) {
        fake.onDownload(
            u"test -e \"$file\" || echo %1 > \"$file\"\necho \"filepath:$file\""_s.arg(height));
        makeReady();
        view->setOutputFormatRaw(format);
        return QFileInfo(download(trim).filePath).fileName().section(u"] "_s, 1);
    };
    const std::tuple<QString, int, std::optional<TrimRange>, QString> cases[] = {
        {u"bestResolution"_s, 2160, TrimRange{1, 5}, u"— trimmed.mp4"_s},
        {u"bestResolution"_s, 2160, TrimRange{1, 6}, u"— trimmed 2.mp4"_s},
        {u"bestResolution"_s, 2160, TrimRange{1, 5}, u"— trimmed.mp4"_s},
        {u"macCompatible"_s, 1080, TrimRange{1, 5}, u"— trimmed 3.mp4"_s},
        {u"macCompatible"_s, 1080, TrimRange{6, 9}, u"— trimmed 4.mp4"_s},
        {u"proRes422"_s, 2160, TrimRange{1, 5}, u"— trimmed.mov"_s},
        {u"proRes422"_s, 2160, {}, {}},
        {u"proRes422"_s, 1080, {}, u"— 2.mov"_s},
    };
    for (const auto &[format, height, trim, name] : cases)
        EXPECT_EQ(save(format, height, trim), name);

    // A file without a record is someone's, too, unless nothing can be seen in it.
    QFile::remove(fake.store.records().last().filePath);
    EXPECT_EQ(save(u"bestResolution"_s, 2160, TrimRange{2, 3}), u"— trimmed 5.mp4"_s);
    fake.store.clear();
    EXPECT_EQ(save(u"bestResolution"_s, 2160, TrimRange{2, 3}), u"— trimmed.mp4"_s);
    fake.store.clear();
    EXPECT_EQ(save(u"bestResolution"_s, 2160, TrimRange{2, 3}), u"— trimmed 6.mp4"_s);
    // A name without room for two more letters.
    const QString longest = fake.downloadFolder() + u'/' + QString(239, u'x');
    const QString clip = longest + u" — trimmed.mp4"_s;
    ASSERT_TRUE(QFile::rename(fake.store.records().first().filePath, clip));
    ASSERT_TRUE(QFile::copy(clip, longest));
    const Conversion second{{fake.tools.path(u"ffmpeg"_s), fake.tools.path(u"ffprobe"_s)},
                            longest,
                            EncodeProfile::h264Mp4(),
                            TrimRange{1, 2},
                            {},
                            {}};
    EXPECT_EQ(second.run({}, {}).filePath, longest + u" — 2.mp4"_s);

    fake.store.clear();
    QFile half(fake.downloadFolder() + u"/Talk [id1] — trimmed.mp4"_s);
    ASSERT_TRUE(half.open(QIODevice::WriteOnly));
    half.write("half\n");
    half.close();
    EXPECT_EQ(save(u"bestResolution"_s, 2160, TrimRange{1, 2}), u"— trimmed.mp4"_s);
}

TEST_F(DownloadPipelineTest, GivesEachFormatAFileOfItsOwn)
{
    const auto downloadAs = [&](const QString &format, const QString &codec, int height) {
        makeReady();
        view->setOutputFormatRaw(format);
        fake.onProbe(codec, height);
        return QFileInfo(download().filePath).fileName();
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
    EXPECT_EQ(QFileInfo(download().filePath).fileName(), u"Talk 5 [id1].mp4"_s);
}

} // namespace
} // namespace clipwren::test
