#include "support/FileFault.h"

#include "core/media/OutputFile.h"
#include "workflow/download/DownloaderFixture.h"

#include <cerrno>

namespace clipwren::test {
namespace {

using namespace Qt::StringLiterals;

/// A clip is made again, and one file operation of ours fails.
class FileFaultTest : public DownloaderFixture, public testing::WithParamInterface<int> {
protected:
    /// Leaves nothing but a recorded file of that name, and the video ready to be downloaded.
    void startOverWith(const QString &name, DownloadRecord record)
    {
        startOver();
        QDir().mkpath(fake.downloadFolder());
        writeFile(path(name), "earlier");
        record.sourceURL = address;
        record.filePath = path(name);
        fake.store.add(record);
        makeReady();
    }

    /// False when there were fewer operations than that.
    bool saveWithFault(int number)
    {
        FileFault fault(number, GetParam(), fake.downloadFolder().toStdString());
        view->start();
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return view->phase() == Phase::done || view->phase() == Phase::ready; }));
        return FileFault::happened();
    }

    const QString whole = u"Talk [id1].mp4"_s;
    const QString clip = u"Talk [id1] — trimmed.mp4"_s;
};

TEST_P(FileFaultTest, losesNoFileAndSaysWhatFailed)
{
    fake.onDownload(u"echo >> \"$0.downloads\"\n"_s + FakeDownloader::defaultDownload());
    for (const bool converts : {true, false}) {
        fake.onConvert(converts ? u"echo new > \"$output\""_s
                                : u"echo half > \"$output\"; exit 1"_s);
        bool isFault = true;
        int number = 0;
        while (isFault) {
            SCOPED_TRACE(++number);
            DownloadRecord record;
            record.trimStart = 1;
            record.trimEnd = 5;
            startOverWith(clip, record);
            view->setTrimEnabled(true);
            view->setTrimRange(1, 5);
            const QString downloads = fake.tools.path(u"yt-dlp.downloads"_s);
            QFile::remove(downloads);
            isFault = saveWithFault(number);
            const bool isDone = view->phase() == Phase::done;
            const QString error = view->errorMessage().value_or(QString());
            // As the next start does.
            view->resetAll();
            OutputFile::restoreAfterKill(fake.downloadFolder());

            EXPECT_EQ(QDir(fake.downloadFolder())
                          .entryList({u".*"_s}, QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot),
                      QStringList());
            EXPECT_EQ(fake.store.records().size(), isDone ? 2 : 1);
            if (isDone) {
                EXPECT_TRUE(converts);
                const QString saved = QFileInfo(fake.store.records().first().filePath).fileName();
                EXPECT_EQ(read(saved), "new\n");
                EXPECT_TRUE(saved == clip || read(clip) == "earlier");
            } else {
                EXPECT_FALSE(error.isEmpty());
                EXPECT_EQ(read(clip), "earlier");
                EXPECT_TRUE(read(whole) == "old\n" || !QFile::exists(downloads));
            }
        }
        EXPECT_GT(number, 10);
    }
}

TEST_P(FileFaultTest, losesNoFilmWhoseSoundIsSaved)
{
    // As the tool does where the page has no sound by itself.
    fake.onDownload(u"rm -f \"${file%mp3}mp4\"\n"_s + FakeDownloader::defaultDownload());
    bool isFault = true;
    int number = 0;
    while (isFault) {
        SCOPED_TRACE(++number);
        startOverWith(whole, {});
        view->setOutputFormatRaw(u"audioMP3"_s);
        isFault = saveWithFault(number);
        EXPECT_TRUE(view->phase() == Phase::done || view->errorMessage());
        view->resetAll();
        OutputFile::restoreAfterKill(fake.downloadFolder());
        EXPECT_EQ(read(whole), "earlier");
    }
    EXPECT_GT(number, 5);
}

INSTANTIATE_TEST_SUITE_P(, FileFaultTest, testing::Values(ENOSPC, EACCES, EIO, ENAMETOOLONG));

} // namespace
} // namespace clipwren::test
