#include "workflow/download/Conversion.h"

#include "workflow/download/DownloaderFixture.h"
#include "workflow/download/LeftoverDownload.h"

namespace clipwren::test {
namespace {

using namespace Qt::StringLiterals;

/// The cuts and conversions of whole downloads.
using ConversionTest = DownloaderFixture;

TEST_F(ConversionTest, cutsNothingThatTheFilmDoesNotHave)
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
        startOver();
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

TEST_F(ConversionTest, triesAgainWithWhatItLeft)
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
             view.emplace(fake.context());
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
         [&] { QFile(path(left)).resize(1); },
         TrimRange{1, 5},
         1,
         {clip, left}},
        {"renamed by the user",
         [&] { QFile::rename(path(left), path(u"Mine.mp4"_s)); },
         TrimRange{1, 5},
         1,
         {u"Mine.mp4"_s, clip}},
        {"removed by the user", [&] { QFile::remove(path(left)); }, TrimRange{1, 5}, 1, {clip}},
        {"recorded meanwhile",
         [&] {
             DownloadRecord record;
             record.filePath = path(left);
             fake.store.add(record);
         },
         TrimRange{1, 5},
         0,
         {clip, left}},
    };
    const QString runs = fake.tools.path(u"yt-dlp.runs-of-downloads"_s);
    fake.onDownload(u"echo >> \"$0.runs-of-downloads\"\n"_s + FakeDownloader::defaultDownload());
    const auto hiddenToo = [&] {
        return QDir(fake.downloadFolder()).entryList(QDir::Files | QDir::Hidden);
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        startOver();
        fake.onConvert(u"echo out_time_us=1; exec sleep 60"_s);
        makeReady(u"bestResolution"_s);
        view->setTrimEnabled(true);
        view->start();
        ASSERT_TRUE(reaches(*view, Phase::processing));
        cancel();
        EXPECT_EQ(hiddenToo(), QStringList{left});

        c.meanwhile();
        QFile::remove(runs);
        fake.onConvert(u"echo new > \"$output\""_s);
        download(c.trim);
        EXPECT_EQ(QFileInfo(runs).size(), c.downloads);
        EXPECT_EQ(files(), c.files);
        // The user's files are no more ours, and no other file is left.
        view->resetAll();
        EXPECT_EQ(hiddenToo(), c.files);
        EXPECT_EQ(LeftoverDownload::find(fake.downloadFolder(), address), QStringList());
    }
}

TEST_F(ConversionTest, givesEachClipAFileOfItsOwn)
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
        makeReady(format);
        return downloadedName(trim).section(u"] "_s, 1);
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
    // So is that of another page.
    DownloadRecord other = fake.store.records().first();
    other.sourceURL += u"&other"_s;
    fake.store.clear();
    fake.store.add(other);
    EXPECT_EQ(save(u"bestResolution"_s, 2160, TrimRange{2, 3}), u"— trimmed 7.mp4"_s);
    // A name without room for two more letters.
    const QString longest = path(QString(239, u'x'));
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
    writeFile(path(u"Talk [id1] — trimmed.mp4"_s), "half\n");
    EXPECT_EQ(save(u"bestResolution"_s, 2160, TrimRange{1, 2}), u"— trimmed.mp4"_s);
}

} // namespace
} // namespace clipwren::test
