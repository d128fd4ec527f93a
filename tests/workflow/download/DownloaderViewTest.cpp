#include "workflow/download/DownloaderView.h"

#include "workflow/download/DownloaderFixture.h"

namespace clipwren::test {
namespace {

using namespace Qt::StringLiterals;

using DownloaderViewTest = DownloaderFixture;

TEST_F(DownloaderViewTest, goesTheWholeWayFromAddressToRecord)
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
    EXPECT_TRUE(view->fetchLog().contains(u"Downloading webpage"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return view->previewURL().has_value(); }));
    EXPECT_EQ(fake.playerLog, QStringList{u"load https://stream.example/preview.mp4"_s});

    view->confirm();
    // What was confirmed is downloaded.
    view->setUrlText(u"https://site.example/another"_s);
    std::vector<std::pair<Phase, QString>> stages;
    QObject::connect(&*view, &DownloaderView::changed, &*view, [&] {
        const std::pair stage{view->phase(), view->phaseLabel()};
        if (view->phase() != Phase::ready && (stages.empty() || stages.back() != stage))
            stages.push_back(stage);
    });
    const DownloadRecord record = download(TrimRange{10, 15});
    const decltype(stages) expectedStages{{Phase::downloading, u"Downloading"_s},
                                          {Phase::processing, u"Trimming"_s},
                                          {Phase::done, u"Trimming"_s}};
    EXPECT_EQ(stages, expectedStages);
    EXPECT_EQ(view->downloadProgress(), 1.0);
    EXPECT_EQ(fake.desktop.log, QStringList{u"sound"_s});
    EXPECT_EQ(fake.desktop.notifications,
              QStringList{u"Download complete | Talk | Talk [id1] — trimmed.mp4"_s});
    EXPECT_EQ(fake.desktop.progress, 1);
    EXPECT_EQ(fake.desktop.activities, 0);

    EXPECT_EQ(DownloadStore(fake.libraryFolder()).records(), QList{record});
    EXPECT_EQ(completed, std::vector{record.id});
    EXPECT_EQ(record.title, u"Talk"_s);
    EXPECT_EQ(record.sourceURL, address);
    EXPECT_EQ(fake.tools.arguments(u"yt-dlp"_s).last(), address);
    EXPECT_EQ(record.filePath, fake.downloadFolder() + u"/Talk [id1] — trimmed.mp4"_s);
    EXPECT_EQ(record.thumbnailURL, u"https://site.example/t.jpg"_s);
    EXPECT_EQ(record.durationSeconds, 60.5);
    EXPECT_EQ(record.trimStart, 10);
    EXPECT_EQ(record.trimEnd, 15);
    EXPECT_EQ(files(), QStringList{u"Talk [id1] — trimmed.mp4"_s});
    const HistoryEntry entry = HistoryStore(fake.libraryFolder()).entries().value(0);
    EXPECT_EQ(entry.url, address);
    EXPECT_EQ(entry.downloadCount, 1);
}

TEST_F(DownloaderViewTest, takesOnlyWebAddresses)
{
    const std::tuple<QString, Phase, std::optional<QString>> cases[] = {
        {u" \n"_s, Phase::input, std::nullopt},
        {u"ftp://site.example/"_s, Phase::input, u"Enter a valid http(s) URL"_s},
        {u"site.example/watch"_s, Phase::input, u"Enter a valid http(s) URL"_s},
        {u"HTTP://site.example/"_s, Phase::input, u"Enter a valid http(s) URL"_s},
        {u"https://"_s, Phase::input, u"Enter a valid http(s) URL"_s},
        {u"https://site.example/a b"_s, Phase::input, u"Enter a valid http(s) URL"_s},
        {u"http://site.example/"_s, Phase::fetching, std::nullopt},
        {u"https://site.example/watch?v=ü"_s, Phase::fetching, std::nullopt},
    };
    for (const auto &[text, phase, error] : cases) {
        SCOPED_TRACE(text.toStdString());
        view->setUrlText(text);
        view->fetchInfo(false);
        EXPECT_EQ(view->phase(), phase);
        EXPECT_EQ(view->fetchError(), error);
    }
}

TEST_F(DownloaderViewTest, tellsWhyALookupFailedAndTriesTheSameAddressAgain)
{
    fake.onLookup(u"echo 'ERROR: Private video' >&2; exit 1"_s);
    startLookup();
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

TEST_F(DownloaderViewTest, leavesThePhaseAloneInTheWrongMomentAndWithoutTools)
{
    lookUp();
    view->start();
    view->cancelFetch();
    EXPECT_EQ(view->phase(), Phase::confirming);
    view->confirm();
    QFile::remove(fake.tools.path(u"ffprobe"_s));
    fake.toolEnvironment->refresh();
    view->start();
    EXPECT_EQ(view->phase(), Phase::ready);
    QFile::remove(fake.tools.path(u"ffmpeg"_s));
    fake.toolEnvironment->refresh();
    view->fetchInfo(false);
    EXPECT_EQ(view->phase(), Phase::ready);
    EXPECT_FALSE(view->fetchError());
}

TEST_F(DownloaderViewTest, aLookupThatIsCancelledOrSupersededChangesNothing)
{
    const auto startSlowLookup = [&] {
        fake.onLookup(u"echo first; echo '[x] slow' >&2; exec sleep 60"_s);
        startLookup();
        return QTest::qWaitFor([&] { return !view->fetchStatus().isEmpty(); });
    };
    ASSERT_TRUE(startSlowLookup());
    view->cancelFetch();
    EXPECT_EQ(view->phase(), Phase::input);
    EXPECT_TRUE(QTest::qWaitFor([&] { return view->fetchStatus().isEmpty(); }));
    EXPECT_FALSE(view->fetchError());
    EXPECT_EQ(view->phase(), Phase::input);

    ASSERT_TRUE(startSlowLookup());
    fake.onLookup(u"sleep 0.2; cat \"$0.json\""_s);
    view->fetchInfo(false);
    std::vector<Phase> phases;
    QObject::connect(&*view, &DownloaderView::changed, &*view,
                     [&] { phases.push_back(view->phase()); });
    ASSERT_TRUE(reaches(*view, Phase::confirming));
    EXPECT_THAT(phases, testing::Each(testing::AnyOf(Phase::fetching, Phase::confirming)));
    EXPECT_FALSE(view->fetchError());
}

TEST_F(DownloaderViewTest, takesUpEveryRequest)
{
    fake.pendingFetch.put({address});
    view->acceptRequests();
    EXPECT_FALSE(fake.pendingFetch.value());
    EXPECT_EQ(view->urlText(), address);
    ASSERT_TRUE(reaches(*view, Phase::confirming));

    fake.pendingFetch.put({address});
    EXPECT_FALSE(fake.pendingFetch.value());
    EXPECT_EQ(view->phase(), Phase::fetching);
}

TEST_F(DownloaderViewTest, showsNoPreviewOfAnotherVideo)
{
    fake.onPreviewLookup(u"sleep 0.2; echo https://stream.example/late.mp4"_s);
    lookUp();
    view->resetAll();
    settle();
    EXPECT_TRUE(fake.playerLog.isEmpty());
    EXPECT_FALSE(view->previewURL());

    lookUp();
    ASSERT_TRUE(QTest::qWaitFor([&] { return view->preview().player() != nullptr; }));
    fake.onPreviewLookup(u"exit 1"_s);
    lookUp();
    settle();
    EXPECT_EQ(view->preview().player(), nullptr);
    EXPECT_FALSE(view->previewURL());
}

TEST_F(DownloaderViewTest, dropsThePreviewDuringADownloadAndLoadsItAgainAfterAFailure)
{
    makeReady();
    ASSERT_TRUE(QTest::qWaitFor([&] { return view->preview().player() != nullptr; }));
    fake.onDownload(u"exit 1"_s);
    view->start();
    EXPECT_EQ(view->preview().player(), nullptr);
    ASSERT_TRUE(reaches(*view, Phase::ready));
    EXPECT_NE(view->preview().player(), nullptr);

    fake.onPreviewLookup(u"sleep 0.2; echo https://stream.example/late.mp4"_s);
    makeReady();
    EXPECT_TRUE(view->isPreviewLoading());
    fake.onDownload(FakeDownloader::defaultDownload());
    view->start();
    settle();
    EXPECT_EQ(view->preview().player(), nullptr) << "the stream came during the download";
}

TEST_F(DownloaderViewTest, keepsButNeverAppliesTheRangeOfAnotherVideo)
{
    fake.onLookup(u"echo '{}'"_s);
    view->setTrimRange(3, 4);
    lookUp();
    EXPECT_EQ(view->trimStart(), 3);
    EXPECT_EQ(view->trimEnd(), 4);
    // It is another video's, and no slider shows it.
    view->confirm();
    view->setTrimEnabled(true);
    view->start();
    ASSERT_TRUE(reaches(*view, Phase::done));
    EXPECT_FALSE(fake.store.records().first().trimStart);

    makeReady();
    EXPECT_EQ(view->filenamePreview(), u"Untitled [<id>].mp4"_s);
    // Whoever sets a range without being shown one asks for it.
    EXPECT_EQ(download(TrimRange{5, 6}).trimEnd, 6);
}

TEST_F(DownloaderViewTest, previewsTheFileName)
{
    lookUp();
    const std::tuple<QString, QString, QString> cases[] = {
        {{}, u"bestResolution"_s, u"Talk [<id>].mp4"_s},
        {u"a/b"_s, u"audioMP3"_s, u"a-b [<id>].mp3"_s},
        {u"  "_s, u"proRes422"_s, u"Talk [<id>].mov"_s},
        {u"100% real"_s, {}, u"100% real [<id>].mp4"_s},
        {u"%"_s.repeated(120), {}, u"%"_s.repeated(90) + u" [<id>].mp4"_s},
        {u"漢"_s.repeated(150), {}, u"漢"_s.repeated(66) + u" [<id>].mp4"_s},
        {u"x"_s, u"no such format"_s, u"x [<id>].mp4"_s},
    };
    for (const auto &[title, format, name] : cases) {
        view->setCustomTitle(title);
        view->setOutputFormatRaw(format);
        EXPECT_EQ(view->filenamePreview(), name);
    }
    view->setCustomTitle(u"x"_s.repeated(1'000'000));
    EXPECT_EQ(view->customTitle().size(), 2'000);
    view->setOutputFormatRaw(u"maxQuality"_s);
    EXPECT_EQ(view->selectedOption().kind, OutputFormat::macCompatible);
    // The site's own title is left to the tool, which has ways of its own.
    const std::pair<QString, QString> siteTitles[] = {
        {u"At 1:30:00: a/b? \\\"c\\\" <d>|*"_s, u"At 1_30_00： a⧸b？ ＂c＂ ＜d＞｜＊"_s},
        {u".5% of\\tit"_s, u".5% ofit"_s},
        {u"漢"_s.repeated(150), u"漢"_s.repeated(66)},
        // The tool itself would make a name of 600 bytes.
        {u"?"_s.repeated(200), u"-"_s.repeated(180)},
        {u"half \\ud83d\\na pair"_s, u"half - a pair"_s},
    };
    for (const auto &[title, stem] : siteTitles) {
        fake.tools.write(u"yt-dlp.json"_s, u"{\"title\":\"%1\"}"_s.arg(title));
        lookUp();
        EXPECT_EQ(view->filenamePreview(), stem + u" [<id>].mp4"_s);
    }
}

TEST_F(DownloaderViewTest, downloadsWhatIsShownWhereTheStoredFormatIsNotOffered)
{
    view->setOutputFormatRaw(u"macCompatible"_s);
    const std::pair<QString, QString> cases[] = {
        {u"vp9"_s, u"Best resolution — 720p VP9"_s},
        {u"avc1"_s, u"Best resolution — 720p H.264"_s},
    };
    for (const auto &[codec, shown] : cases) {
        fake.onLookup(u"echo '{\"formats\":[{\"vcodec\":\"%1\",\"height\":720}]}'"_s.arg(codec));
        makeReady();
        settle();
        EXPECT_EQ(view->selectedOption().title, shown);
        download();
        EXPECT_TRUE(fake.tools.arguments(u"yt-dlp"_s).contains(u"bv*+ba[ext=m4a]/bv*+ba/b"_s));
        EXPECT_EQ(view->outputFormatRaw(), u"macCompatible"_s);
    }
}

TEST_F(DownloaderViewTest, canBeDestroyedAtAnyMoment)
{
    fake.onLookup(u"echo '[x] a' >&2; sleep 0.01; cat \"$0.json\""_s);
    fake.onDownload(u"sleep 0.01; "_s + FakeDownloader::defaultDownload());
    fake.onConvert(u"sleep 0.01; echo new > \"$output\""_s);
    for (int round = 0; round < 100; ++round) {
        const auto lastPhase = static_cast<Phase>(round % 7);
        view.emplace(fake.context());
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
        if (lastPhase != Phase::input)
            startLookup();
        ASSERT_TRUE(QTest::qWaitFor([&] { return view->phase() >= lastPhase; }));
        view.reset();
        QCoreApplication::processEvents();
    }
}

} // namespace
} // namespace clipwren::test
