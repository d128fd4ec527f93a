#include "workflow/download/DownloaderView.h"

#include "support/FakeDownloader.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSignalSpy>
#include <QTest>

#include <gmock/gmock.h>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;
using test::FakeDownloader;
using test::reaches;

const QString address = u"https://site.example/watch?v=1"_s;

class DownloaderViewTest : public testing::Test {
protected:
    FakeDownloader fake;
    std::vector<QUuid> completed;
    std::optional<DownloaderView> view;

    void SetUp() override
    {
        view.emplace(fake.environment(), [this](QUuid id) { completed.push_back(id); });
    }

    void TearDown() override
    {
        view.reset();
        settle();
    }

    void lookUp()
    {
        view->setUrlText(address);
        view->fetchInfo(false);
        ASSERT_TRUE(reaches(*view, Phase::confirming));
    }
    void makeReady()
    {
        lookUp();
        view->confirm();
        ASSERT_EQ(view->phase(), Phase::ready);
    }
    /// Lets everything that was started come to its end.
    static void settle()
    {
        EXPECT_TRUE(BackgroundTask::waitForAll(std::chrono::seconds(10)));
        QCoreApplication::processEvents();
    }
};

TEST_F(DownloaderViewTest, GoesTheWholeWayFromAddressToRecord)
{
    view->setUrlText(u"  "_s + address + u"\n"_s);
    view->fetchInfo(false);
    EXPECT_EQ(view->phase(), Phase::fetching);
    EXPECT_EQ(view->lastAttemptedURL(), address);
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return view->fetchStatus() == u"abc: Downloading webpage"_s
            || view->phase() == Phase::confirming;
    }));

    ASSERT_TRUE(reaches(*view, Phase::confirming));
    EXPECT_EQ(view->info()->title, u"Talk"_s);
    EXPECT_EQ(view->customTitle(), u"Talk"_s);
    EXPECT_EQ(view->trimEnd(), 60.5);
    EXPECT_EQ(view->fetchStatus(), QString());
    EXPECT_THAT(view->fetchLog().toStdString(), testing::HasSubstr("Downloading webpage"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return view->previewURL().has_value(); }));
    EXPECT_EQ(fake.playerLog, QStringList{u"load https://stream.example/preview.mp4"_s});

    view->confirm();
    view->setTrimEnabled(true);
    view->setTrimRange(10, 15);
    std::vector<std::pair<Phase, QString>> stages;
    QObject::connect(&*view, &DownloaderView::changed, &*view, [&] {
        const std::pair stage{view->phase(), view->phaseLabel()};
        if (stages.empty() || stages.back() != stage)
            stages.push_back(stage);
    });
    view->start();
    EXPECT_EQ(view->downloadStatus(), u"Starting…"_s);
    ASSERT_TRUE(reaches(*view, Phase::done));
    const std::vector<std::pair<Phase, QString>> expectedStages{
        {Phase::downloading, u"Downloading"_s},
        {Phase::processing, u"Trimming"_s},
        {Phase::done, u"Trimming"_s}};
    EXPECT_EQ(stages, expectedStages);
    EXPECT_EQ(view->downloadProgress(), 1.0);
    EXPECT_EQ(fake.desktop.log, QStringList{u"sound"_s});

    const DownloadRecord record = DownloadStore(fake.libraryFolder()).records().value(0);
    EXPECT_EQ(completed, std::vector{record.id});
    EXPECT_EQ(record.title, u"Talk"_s);
    EXPECT_EQ(record.sourceURL, address);
    EXPECT_EQ(record.filePath, fake.downloadFolder() + u"/Talk [id1] — trimmed.mp4"_s);
    EXPECT_EQ(record.thumbnailURL, u"https://site.example/t.jpg"_s);
    EXPECT_EQ(record.durationSeconds, 60.5);
    EXPECT_EQ(record.trimStart, 10);
    EXPECT_EQ(record.trimEnd, 15);
    EXPECT_FALSE(QFile::exists(fake.downloadFolder() + u"/Talk [id1].mp4"_s));
    const HistoryEntry entry = HistoryStore(fake.libraryFolder()).entries().value(0);
    EXPECT_EQ(entry.url, address);
    EXPECT_EQ(entry.downloadCount, 1);
}

TEST_F(DownloaderViewTest, TakesOnlyWebAddresses)
{
    struct Case {
        const char16_t *text;
        bool valid;
        bool hasError;
    };
    const Case cases[] = {
        {u"", false, false},
        {u" \n", false, false},
        {u"ftp://site.example/", false, true},
        {u"site.example/watch", false, true},
        {u"HTTP://site.example/", false, true},
        {u"https://", false, true},
        {u"https://site.example/a b", false, true},
        {u"http://site.example/", true, false},
        {u"https://site.example/watch?v=ü", true, false},
    };
    for (const Case &c : cases) {
        view->setUrlText(QString::fromUtf16(c.text));
        SCOPED_TRACE(view->urlText().toStdString());
        view->fetchInfo(false);
        EXPECT_EQ(view->phase(), c.valid ? Phase::fetching : Phase::input);
        EXPECT_EQ(view->fetchError(),
                  c.hasError ? std::optional(u"Enter a valid http(s) URL"_s) : std::nullopt);
    }
}

TEST_F(DownloaderViewTest, TellsWhyALookupFailedAndTriesTheSameAddressAgain)
{
    fake.onLookup(u"echo 'ERROR: Private video' >&2; exit 1"_s);
    view->setUrlText(address);
    view->fetchInfo(false);
    EXPECT_TRUE(QTest::qWaitFor([&] { return view->fetchError().has_value(); }));
    EXPECT_EQ(view->phase(), Phase::input);
    EXPECT_EQ(view->fetchError(), u"This video is private or members-only."_s);
    EXPECT_EQ(view->fetchLog(), u"ERROR: Private video\n"_s);
    EXPECT_FALSE(view->info());

    fake.onLookup(u"cat \"$0.json\""_s);
    view->setUrlText(u"edited meanwhile"_s);
    view->fetchInfo(true);
    EXPECT_EQ(view->urlText(), address);
    EXPECT_FALSE(view->fetchError());
    EXPECT_TRUE(reaches(*view, Phase::confirming));
}

TEST_F(DownloaderViewTest, LeavesThePhaseAloneWhileToolsAreMissing)
{
    QFile::remove(fake.tools.path(u"ffmpeg"_s));
    fake.toolEnvironment->refresh();
    view->setUrlText(address);
    view->fetchInfo(false);
    EXPECT_EQ(view->phase(), Phase::input);
    EXPECT_FALSE(view->fetchError());
    EXPECT_EQ(view->lastAttemptedURL(), address);
}

TEST_F(DownloaderViewTest, ASupersededLookupChangesNothing)
{
    fake.onLookup(u"echo first; echo '[x] slow' >&2; exec sleep 60"_s);
    view->setUrlText(address);
    view->fetchInfo(false);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !view->fetchStatus().isEmpty(); }));

    fake.onLookup(u"sleep 0.2; cat \"$0.json\""_s);
    view->fetchInfo(false);
    std::vector<Phase> phases;
    QObject::connect(&*view, &DownloaderView::changed, &*view,
                     [&] { phases.push_back(view->phase()); });
    ASSERT_TRUE(reaches(*view, Phase::confirming));
    EXPECT_THAT(phases, testing::Each(testing::AnyOf(Phase::fetching, Phase::confirming)));
    EXPECT_FALSE(view->fetchError());
}

TEST_F(DownloaderViewTest, CancellingALookupReturnsToTheAddress)
{
    fake.onLookup(u"echo '[x] slow' >&2; exec sleep 60"_s);
    view->setUrlText(address);
    view->fetchInfo(false);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !view->fetchStatus().isEmpty(); }));
    view->cancelFetch();
    EXPECT_EQ(view->phase(), Phase::input);
    EXPECT_TRUE(QTest::qWaitFor([&] { return view->fetchStatus().isEmpty(); }));
    EXPECT_FALSE(view->fetchError());
    EXPECT_EQ(view->phase(), Phase::input);
}

TEST_F(DownloaderViewTest, TakesUpEveryRequest)
{
    fake.pendingFetch.put({address});
    view->takeUpRequests();
    EXPECT_FALSE(fake.pendingFetch.value());
    EXPECT_EQ(view->urlText(), address);
    ASSERT_TRUE(reaches(*view, Phase::confirming));

    fake.pendingFetch.put({address});
    EXPECT_FALSE(fake.pendingFetch.value());
    EXPECT_EQ(view->phase(), Phase::fetching);
    EXPECT_TRUE(reaches(*view, Phase::confirming));
}

TEST_F(DownloaderViewTest, DropsAPreviewThatComesTooLate)
{
    fake.onPreviewLookup(u"sleep 0.2; echo https://stream.example/late.mp4"_s);
    lookUp();
    view->resetAll();
    settle();
    EXPECT_TRUE(fake.playerLog.isEmpty());
    EXPECT_FALSE(view->previewURL());
}

TEST_F(DownloaderViewTest, ShowsNoPreviewOfTheVideoBefore)
{
    lookUp();
    ASSERT_TRUE(QTest::qWaitFor([&] { return view->preview().player() != nullptr; }));
    fake.onPreviewLookup(u"exit 1"_s);
    lookUp();
    settle();
    EXPECT_EQ(view->preview().player(), nullptr);
    EXPECT_FALSE(view->previewURL());
}

TEST_F(DownloaderViewTest, KeepsTheRangeOfMetadataWithoutADuration)
{
    fake.onLookup(u"echo '{}'"_s);
    view->setTrimRange(3, 4);
    lookUp();
    EXPECT_EQ(view->trimStart(), 3);
    EXPECT_EQ(view->trimEnd(), 4);
    EXPECT_EQ(view->customTitle(), QString());
    EXPECT_EQ(view->filenamePreview(), u"Untitled [<id>].mp4"_s);
}

TEST_F(DownloaderViewTest, PreviewsTheFileName)
{
    lookUp();
    struct Case {
        const char16_t *title;
        const char16_t *format;
        const char16_t *expected;
    };
    const Case cases[] = {
        {u"", u"bestResolution", u"Talk [<id>].mp4"},
        {u"a/b", u"audioMP3", u"a-b [<id>].mp3"},
        {u"  ", u"proRes422", u"Untitled [<id>].mov"},
        {u"x", u"no such format", u"x [<id>].mp4"},
    };
    for (const Case &c : cases) {
        view->setCustomTitle(QString::fromUtf16(c.title));
        view->setOutputFormatRaw(QString::fromUtf16(c.format));
        EXPECT_EQ(view->filenamePreview(), QString::fromUtf16(c.expected));
    }
    view->setOutputFormatRaw(u"maxQuality"_s);
    EXPECT_EQ(view->selectedOption().kind, OutputFormat::macCompatible);
}

TEST_F(DownloaderViewTest, ProcessesOnlyWhatNeedsIt)
{
    struct Case {
        const char16_t *format;
        std::optional<std::pair<double, double>> trim;
        const char16_t *label;
        const char16_t *fileName;
        bool hasTrim;
        const char16_t *probedCodec;
    };
    const Case cases[] = {
        {u"bestResolution", {}, u"Downloading", u"Talk [id1].mp4", false, u"vp9"},
        {u"bestResolution", {{10, 10.04}}, u"Downloading", u"Talk [id1].mp4", false, u"vp9"},
        {u"audioMP3", {{1, 5}}, u"Downloading", u"Talk [id1].mp3", false, u"vp9"},
        {u"proRes422", {}, u"Encoding to Apple ProRes 422", u"Talk [id1].mov", false, u"vp9"},
        {u"proRes422",
         {{1, 5}},
         u"Encoding to Apple ProRes 422",
         u"Talk [id1] — trimmed.mov",
         true,
         u"vp9"},
        {u"macCompatible", {{1, 5}}, u"Trimming", u"Talk [id1] — trimmed.mp4", true, u"h264"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(QString::fromUtf16(c.fileName).toStdString());
        QDir(fake.downloadFolder()).removeRecursively();
        fake.store.clear();
        view->resetAll();
        makeReady();
        view->setOutputFormatRaw(QString::fromUtf16(c.format));
        view->setTrimEnabled(c.trim.has_value());
        if (c.trim)
            view->setTrimRange(c.trim->first, c.trim->second);
        view->start();
        ASSERT_TRUE(reaches(*view, Phase::done));
        EXPECT_EQ(view->phaseLabel(), QString::fromUtf16(c.label));
        const DownloadRecord record = fake.store.records().value(0);
        EXPECT_EQ(QFileInfo(record.filePath).fileName(), QString::fromUtf16(c.fileName));
        EXPECT_EQ(record.trimStart.has_value(), c.hasTrim);
        EXPECT_EQ(record.durationSeconds, 60.5);
        // The file is there, and nothing else is left.
        EXPECT_EQ(QDir(fake.downloadFolder()).entryList(QDir::Files),
                  QStringList{QString::fromUtf16(c.fileName)});
    }
}

TEST_F(DownloaderViewTest, NamesTheFileAndTheRecordByTheTypedTitle)
{
    struct Case {
        const char16_t *typed;
        const char16_t *recordTitle;
        const char16_t *fileName;
    };
    const Case cases[] = {
        {u"Talk", u"Talk", u"Talk [id1].mp4"},
        {u" ", u"Talk", u"Talk [id1].mp4"},
        {u" 100%: mine ", u"100%: mine", u"100%- mine [id1].mp4"},
    };
    for (const Case &c : cases) {
        view->resetAll();
        makeReady();
        view->setCustomTitle(QString::fromUtf16(c.typed));
        view->start();
        ASSERT_TRUE(reaches(*view, Phase::done));
        EXPECT_EQ(fake.store.records().value(0).title, QString::fromUtf16(c.recordTitle));
        EXPECT_EQ(QFileInfo(fake.store.records().value(0).filePath).fileName(),
                  QString::fromUtf16(c.fileName));
    }
}

TEST_F(DownloaderViewTest, TitlesARecordWithoutAnyTitleByItsFile)
{
    fake.onLookup(u"echo '{}'"_s);
    makeReady();
    view->start();
    ASSERT_TRUE(reaches(*view, Phase::done));
    EXPECT_EQ(fake.store.records().value(0).title, u"Talk [id1].mp4"_s);
    EXPECT_EQ(fake.history.entries().value(0).title, address);
}

TEST_F(DownloaderViewTest, CancelsADownloadAndStartsItAgain)
{
    fake.onDownload(u"echo part > \"$file.part\"; echo '10%||NA||NA'; exec sleep 60"_s);
    makeReady();
    view->start();
    ASSERT_TRUE(QTest::qWaitFor([&] { return view->downloadProgress() > 0; }));
    view->cancelDownload();
    ASSERT_TRUE(reaches(*view, Phase::ready));
    EXPECT_EQ(view->errorMessage(), u"Cancelled"_s);
    EXPECT_TRUE(QFile::exists(fake.downloadFolder() + u"/Talk [id1].mp4.part"_s));
    EXPECT_TRUE(fake.store.records().isEmpty());

    fake.onDownload(FakeDownloader::defaultDownload());
    view->start();
    EXPECT_FALSE(view->errorMessage());
    EXPECT_EQ(view->downloadStatus(), u"Starting…"_s);
    EXPECT_TRUE(reaches(*view, Phase::done));
}

TEST_F(DownloaderViewTest, CancelsBetweenTheDownloadAndItsProcessing)
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

TEST_F(DownloaderViewTest, KeepsTheDownloadWhenProcessingFails)
{
    fake.onConvert(u"echo partly > \"$output\"; echo broken >&2; exit 1"_s);
    makeReady();
    view->setTrimEnabled(true);
    view->setTrimRange(1, 5);
    view->start();
    ASSERT_TRUE(reaches(*view, Phase::downloading));
    ASSERT_TRUE(reaches(*view, Phase::ready));
    EXPECT_EQ(view->errorMessage(), u"Process failed (exit 1): broken"_s);
    EXPECT_EQ(QDir(fake.downloadFolder()).entryList(QDir::Files), QStringList{u"Talk [id1].mp4"_s});
    EXPECT_TRUE(fake.store.records().isEmpty());
}

TEST_F(DownloaderViewTest, StartsOnlyWhenReadyAndWithAllTools)
{
    lookUp();
    view->start();
    EXPECT_EQ(view->phase(), Phase::confirming);
    view->confirm();
    QFile::remove(fake.tools.path(u"ffprobe"_s));
    fake.toolEnvironment->refresh();
    view->start();
    EXPECT_EQ(view->phase(), Phase::ready);
}

TEST_F(DownloaderViewTest, NeverRemovesAFileThatWasThereBefore)
{
    for (const bool recorded : {true, false}) {
        view->resetAll();
        makeReady();
        view->setTrimEnabled(false);
        view->start();
        ASSERT_TRUE(reaches(*view, Phase::done));
        if (!recorded)
            fake.store.clear();
        view->resetAll();
        makeReady();
        view->setTrimEnabled(true);
        view->setTrimRange(1, 5);
        view->start();
        ASSERT_TRUE(reaches(*view, Phase::done));
        EXPECT_TRUE(QFile::exists(fake.downloadFolder() + u"/Talk [id1].mp4"_s));
    }
}

TEST_F(DownloaderViewTest, GivesEachFormatAFileOfItsOwn)
{
    const auto download = [&](const QString &format, const QString &codec, int height) {
        view->resetAll();
        makeReady();
        view->setOutputFormatRaw(format);
        fake.onProbe(codec, height);
        view->start();
        EXPECT_TRUE(reaches(*view, Phase::done));
        return QFileInfo(fake.store.records().value(0).filePath).fileName();
    };
    EXPECT_EQ(download(u"bestResolution"_s, u"vp9"_s, 2160), u"Talk [id1].mp4"_s);
    // Every file that is there is a VP9 one.
    EXPECT_EQ(download(u"macCompatible"_s, u"vp9"_s, 2160), u"Talk 2 [id1].mp4"_s);
    EXPECT_EQ(download(u"macCompatible"_s, u"vp9"_s, 2160), u"Talk 3 [id1].mp4"_s);
    // Every file that is there is what was asked for.
    EXPECT_EQ(download(u"macCompatible"_s, u"h264"_s, 1080), u"Talk [id1].mp4"_s);
    EXPECT_EQ(download(u"bestResolution"_s, u"vp9"_s, 2160), u"Talk [id1].mp4"_s);
    EXPECT_EQ(download(u"bestResolution"_s, u"vp9"_s, 1080), u"Talk 4 [id1].mp4"_s);
}

TEST_F(DownloaderViewTest, CanBeDestroyedAtAnyMoment)
{
    fake.onLookup(u"echo '[x] a' >&2; sleep 0.01; cat \"$0.json\""_s);
    fake.onDownload(u"sleep 0.01; "_s + FakeDownloader::defaultDownload());
    fake.onConvert(u"sleep 0.01; echo new > \"$output\""_s);
    for (int round = 0; round < 100; ++round) {
        const auto lastPhase = static_cast<Phase>(round % 7);
        view.emplace(fake.environment());
        view->setTrimEnabled(true);
        QObject::connect(
            &*view, &DownloaderView::changed, &*view,
            [&] {
                if (view->phase() == Phase::confirming && lastPhase > Phase::confirming)
                    view->confirm();
                if (view->phase() == Phase::ready && lastPhase > Phase::ready)
                    view->start();
            },
            Qt::QueuedConnection);
        if (lastPhase != Phase::input) {
            view->setUrlText(address);
            view->fetchInfo(false);
        }
        ASSERT_TRUE(QTest::qWaitFor([&] { return view->phase() >= lastPhase; }));
        view.reset();
        QCoreApplication::processEvents();
    }
}

} // namespace
} // namespace clipwren
