#include "app/save/SaveCommand.h"

#include "support/FakeDownloader.h"
#include "support/Printing.h"

#include <QSignalSpy>

#include <gmock/gmock.h>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;
using testing::HasSubstr;
using testing::Not;

/// The command over fake tools.
class SaveCommandTest : public testing::Test {
protected:
    /// Runs the command to its end, and keeps what it wrote on standard error.
    int run() { return run(fake.context()); }
    int run(const ApplicationContext &context)
    {
        testing::internal::CaptureStderr();
        SaveArguments arguments;
        arguments.address = u"https://site.example/watch?v=1"_s;
        SaveCommand command(arguments, context);
        QSignalSpy finished(&command, &SaveCommand::finished);
        command.start();
        const bool ended = !finished.isEmpty() || finished.wait(10'000);
        standardError = testing::internal::GetCapturedStderr();
        EXPECT_TRUE(ended) << "it does not end";
        return ended ? finished.at(0).at(0).toInt() : -1;
    }

    test::FakeDownloader fake;
    std::string standardError;
};

TEST_F(SaveCommandTest, endsWithASentenceWhenItsToolIsStopped)
{
    for (const QString &end :
         {u"kill -TERM $$"_s, u"kill -KILL $$"_s, u"exit 15"_s, u"exit 143"_s}) {
        SCOPED_TRACE(end.toStdString());
        fake.onLookup(end);
        EXPECT_EQ(run(), SaveCommand::Failed);
        EXPECT_THAT(standardError, HasSubstr("yt-dlp was stopped before it had answered."));
    }
    fake.onLookup(u"cat \"$0.json\""_s);
    fake.onDownload(u"kill -KILL $$"_s);
    EXPECT_EQ(run(), SaveCommand::Failed);
    EXPECT_THAT(standardError, HasSubstr("The tool was stopped before it had finished."));
}

TEST_F(SaveCommandTest, knowsAFileThatTheUsersLibraryRecords)
{
    // Without a length, nothing else tells that the file is whole.
    fake.onLookup(u"echo '{}'"_s);
    EXPECT_EQ(run(), SaveCommand::Saved);
    const DownloadRecord saved = fake.store.records().value(0);
    fake.store.clear();
    auto context = fake.context();
    context.otherRecords = [&] { return QList{saved}; };
    EXPECT_EQ(run(context), SaveCommand::Saved);
    EXPECT_EQ(fake.store.records().value(0).filePath, saved.filePath);
}

TEST_F(SaveCommandTest, showsWhatDecidedInTheLogOfALookUpThatFailed)
{
    const std::pair<QString, const char *> cases[] = {
        {u"echo '[debug] all' >&2; echo 'ERROR: [site] odd answer' >&2; echo '<html>'"_s,
         "\nCouldn't fetch video info: yt-dlp returned data we couldn't parse.\n"
         "ERROR: [site] odd answer\n"},
        {u"echo '[debug] started' >&2"_s, "or removed).\n[debug] started\n"},
        {u"echo 'ERROR: Private video' >&2; exit 1"_s,
         "\nThis video is private or members-only.\nERROR: Private video\n"},
        // What the sentence says already does not come twice.
        {u"echo '[debug] x' >&2; echo 'ERROR: None such' >&2; exit 1"_s,
         "\nCouldn't fetch video info: Process failed (exit 1): ERROR: None such\n"},
    };
    for (const auto &[lookup, expected] : cases) {
        SCOPED_TRACE(lookup.toStdString());
        fake.onLookup(lookup);
        EXPECT_EQ(run(), SaveCommand::Failed);
        // The status lines stand above.
        EXPECT_THAT(standardError, testing::EndsWith(expected));
    }
}

TEST_F(SaveCommandTest, tellsLastThatTheDownloaderIsOld)
{
    const char *const hint = "\nyt-dlp 2024.08.06 is over a year old. A newer one may help. Put it "
                             "into /usr/local/bin, which is searched first.\n";
    fake.today = QDate(2025, 9, 1);
    const std::tuple<QString, QString, bool> cases[] = {
        {u"exit 1"_s, {}, true},
        {u"cat \"$0.json\""_s, u"echo 'ERROR: gone' >&2; exit 1"_s, true},
        // What came then has nothing to do with the site.
        {u"cat \"$0.json\""_s, u"echo filepath:/nowhere"_s, false},
    };
    for (const auto &[lookup, download, isTold] : cases) {
        SCOPED_TRACE(lookup.toStdString());
        fake.onLookup(lookup);
        fake.onDownload(download);
        EXPECT_EQ(run(), SaveCommand::Failed);
        EXPECT_EQ(standardError.ends_with(hint), isTold) << standardError;
    }
    fake.today = QDate(2024, 11, 4);
    fake.onLookup(u"exit 1"_s);
    EXPECT_EQ(run(), SaveCommand::Failed);
    EXPECT_THAT(standardError, Not(HasSubstr("A newer one")));
}

TEST_F(SaveCommandTest, letsNoControlCharacterReachTheTerminal)
{
    fake.tools.write(u"yt-dlp.json"_s, u"{\"title\":\"Ta\\u001b[31mlk\\u202e\\n\\u009b2Jx\"}"_s);
    fake.onLookup(u"printf '[site] a\\033]0;evil\\007b\\n' >&2; cat \"$0.json\""_s);
    fake.onDownload(u"printf 'ERROR: \\033[2Jno\\n' >&2; exit 1"_s);
    EXPECT_EQ(run(), SaveCommand::Failed);
    EXPECT_THAT(standardError, HasSubstr("Ta [31mlk  2Jx (—)\n"));
    for (const char *part : {"\x1b", "\a", "\xc2\x9b", "\u202e"})
        EXPECT_THAT(standardError, Not(HasSubstr(part)));
    // What a title that is written from right to left needs.
    EXPECT_EQ(forTerminal(u"\u200Fبناء\u200F 3"_s), u"\u200Fبناء\u200F 3"_s);
}

} // namespace
} // namespace clipwren
