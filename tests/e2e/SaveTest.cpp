#include "core/media/FfmpegService.h"
#include "core/process/ProcessRunner.h"
#include "core/process/ToolEnvironment.h"
#include "core/ytdlp/YtDlpService.h"
#include "e2e/ProgramTest.h"
#include "support/SampleSite.h"
#include "workflow/download/OfferedFormats.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QTest>

#include <csignal>
#include <gmock/gmock.h>

namespace clipwren::test {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::UnorderedElementsAre;

class SaveTest : public ProgramTest {
protected:
    /// `page` is the name of a video of the site.
    Outcome save(const QString &page, const QStringList &options = {},
                 const std::function<void(const QProcess &)> &meanwhile = {}) const
    {
        return run(QStringList{u"save"_s} + options + QStringList{address(page)}, meanwhile);
    }
    QString address(const QString &page) const { return m_site.address(u"/watch?v="_s + page); }

    SampleSite m_site;
    const ToolEnvironment m_tools{ToolEnvironment::defaultSearchDirectories(),
                                  ToolEnvironment::Versions::Skip};
    const FfmpegService m_inspector{*m_tools.ffmpegPath(), *m_tools.ffprobePath()};
};

struct SavedCase {
    const char *name;
    QString page;
    QString options; ///< parted by a bar
    QString fileName;
    QString facts; ///< container, picture, sound and height
    double duration;

    friend void PrintTo(const SavedCase &tested, std::ostream *out) { *out << tested.name; }
};

class SaveFormatTest : public SaveTest, public testing::WithParamInterface<SavedCase> { };

TEST_P(SaveFormatTest, savesTheFileAndPrintsItsPathOnly)
{
    const SavedCase &expected = GetParam();

    const Outcome outcome = save(expected.page, expected.options.split(u'|'));

    ASSERT_EQ(outcome.exitStatus, 0) << outcome.standardError.toStdString();
    const QString path = downloadsFolder() + u'/' + expected.fileName;
    EXPECT_EQ(outcome.standardOutput, path + u'\n');
    EXPECT_THAT(savedFiles(), ElementsAre(expected.fileName));
    const auto found = m_inspector.inspect(path);
    EXPECT_EQ(u"%1 %2 %3 %4"_s
                  .arg(found.container->section(u',', 0, 0), found.videoCodec.value_or(u"-"_s),
                       *found.audioCodec)
                  .arg(found.height.value_or(0)),
              expected.facts);
    EXPECT_NEAR(*found.duration, expected.duration, 0.1);
}

const QString clock = u"Building a tide clock from scratch [tide-clock-01-1]"_s;
const QString net = u"Mending a net in one afternoon [hls-1]"_s;
const SavedCase savedCases[] = {
    {"bestResolution", u"tide-clock-01"_s, u"--format=bestResolution"_s, clock + u".mp4"_s,
     u"mov vp9 aac 1080"_s, 12},
    {"macCompatible", u"tide-clock-01"_s, u"--format=macCompatible"_s, clock + u".mp4"_s,
     u"mov h264 aac 480"_s, 12},
    {"proRes422", u"hls"_s, u"--format=proRes422"_s, net + u".mov"_s, u"mov prores pcm_s16le 360"_s,
     12},
    {"audioMP3", u"rtl"_s, u"--format=audioMP3"_s,
     u"بناء ساعة المدّ والجزر من الصفر (الحلقة 3) [rtl-1].mp3"_s, u"mp3 - mp3 0"_s, 12},
    {"trimmed", u"tide-clock-01"_s, u"--trim=3-7.48|--format=macCompatible"_s,
     clock + u" — trimmed.mp4"_s, u"mov h264 aac 480"_s, 4.48},
    {"trimmedProRes", u"hls"_s, u"--trim=0:10-0:11.5|--format=proRes422"_s,
     net + u" — trimmed.mov"_s, u"mov prores pcm_s16le 360"_s, 1.5},
    {"ownTitle", u"hls"_s, u"--title=A/B: \"100%\" real?"_s, u"A-B- -100%- real- [hls-1].mp4"_s,
     u"mov h264 aac 360"_s, 12},
};

INSTANTIATE_TEST_SUITE_P(, SaveFormatTest, testing::ValuesIn(savedCases),
                         [](const auto &tested) { return std::string(tested.param.name); });

TEST_F(SaveTest, cutsAtTheVeryFrameAndKeepsTheFileOfAnEarlierSave)
{
    const QStringList format{u"--format"_s, u"macCompatible"_s};
    const QString whole = save(u"tide-clock-01"_s, format).standardOutput.trimmed();
    const QString cut = save(u"tide-clock-01"_s, format + QStringList{u"--trim"_s, u"3-4"_s})
                            .standardOutput.trimmed();
    EXPECT_THAT(savedFiles(),
                UnorderedElementsAre(QFileInfo(whole).fileName(), QFileInfo(cut).fileName()));
    const QString second = save(u"tide-clock-01"_s, format + QStringList{u"--trim"_s, u"5-6"_s})
                               .standardOutput.trimmed();
    EXPECT_EQ(QFileInfo(second).fileName(), clock + u" — trimmed 2.mp4"_s);
    // How like the cut's first frame is to a frame of the whole, in decibels.
    const auto likeness = [&](int frame) {
        const QString filter = u"[0:v]trim=end_frame=1[a];[1:v]trim=start_frame=%1:end_frame=%2,"
                               "setpts=0[b];[a][b]psnr=stats_file=-"_s.arg(frame)
                                   .arg(frame + 1);
        const QString statistics = ProcessRunner::runCapturing(
            {*m_tools.ffmpegPath(),
             {u"-v"_s, u"error"_s, u"-i"_s, cut, u"-i"_s, whole, u"-filter_complex"_s, filter,
              u"-f"_s, u"null"_s, u"-"_s}});
        return QRegularExpression(u"psnr_avg:(\\S+)"_s).match(statistics).captured(1).toDouble();
    };
    // 25 frames a second, so the cut begins with frame 75; its neighbours show other numbers.
    const double same = likeness(75);
    EXPECT_GT(same, likeness(74));
    EXPECT_GT(same, likeness(76));
}

TEST_F(SaveTest, savesWhatTheScreenShowsAndMakesNoCopies)
{
    const YtDlpService downloader{*m_tools.ytDlpPath(), *m_tools.ffmpegPath()};
    for (const QString &page : {u"tied"_s, u"tied-above"_s}) {
        const VideoInfo info = downloader.fetchInfo(address(page), {}).info;
        for (const FormatOption &option : offeredFormats(info)) {
            if (option.kind == OutputFormat::proRes422 || option.kind == OutputFormat::audioMP3)
                continue;
            const QStringList format{u"--format"_s, rawValue(option.kind)};
            const QString path = save(page, format).standardOutput;
            const auto found = m_inspector.inspect(path.trimmed());
            EXPECT_TRUE(option.title.endsWith(
                u" — %1p %2"_s.arg(*found.height).arg(prettyCodecName(*found.videoCodec))))
                << option.title.toStdString();
            EXPECT_EQ(compatLevel(*found.videoCodec), option.compat);
            EXPECT_EQ(save(page, format).standardOutput, path);
        }
    }
    const QString mile = u"Three ways to row the same mile [tied-1].mp4"_s;
    const QString pier = u"The same mile from the pier%1 [tied-above-1].mp4"_s;
    // The second format of the second page is another file.
    EXPECT_THAT(savedFiles(), UnorderedElementsAre(mile, pier.arg(QString()), pier.arg(u" 2"_s)));
}

TEST_F(SaveTest, tellsInOneSentenceWhyAVideoCannotBeSaved)
{
    const std::tuple<QString, QStringList, const char *> cases[] = {
        {u"nowhere"_s, {}, "HTTP Error 404"},
        {u"private"_s, {}, "This video is private or members-only."},
        {u"no-h264"_s, {u"--format=macCompatible"_s}, "does not offer this video in H.264"},
        {u"hls"_s, {u"--trim=20-30"_s}, "The video ends before the time range starts."},
    };
    for (const auto &[page, options, sentence] : cases) {
        const Outcome outcome = save(page, options);
        EXPECT_EQ(outcome.exitStatus, 1);
        EXPECT_EQ(outcome.standardOutput, QString());
        EXPECT_THAT(outcome.standardError.toStdString(), HasSubstr(sentence));
        EXPECT_THAT(savedFiles(), ElementsAre());
    }
}

TEST_F(SaveTest, leavesTheFilesAloneWhenTheFilmIsTooShort)
{
    // The length of a plain file is known when it is there.
    const auto cut = [&](const QString &range) {
        return run({u"save"_s, u"--trim"_s, range, m_site.address(u"/media/tide-clock.mp4"_s)});
    };
    const QString clip = cut(u"3-4"_s).standardOutput.trimmed();
    const qint64 size = QFileInfo(clip).size();
    EXPECT_GT(size, 0);
    const Outcome outcome = cut(u"50-60"_s);
    EXPECT_EQ(outcome.exitStatus, 1);
    EXPECT_THAT(outcome.standardError.toStdString(), HasSubstr("ends before the time range"));
    EXPECT_EQ(QFileInfo(clip).size(), size);
    EXPECT_THAT(savedFiles(),
                UnorderedElementsAre(QFileInfo(clip).fileName(), u"tide-clock [tide-clock].mp4"_s));
}

TEST_F(SaveTest, twoAtOnceSaveOneVideoOneAfterTheOther)
{
    const QString page = markedPage(u"hls"_s);
    const auto isRun = [&](const QString &argument) {
        return !processes().filter(argument).isEmpty();
    };
    Outcome second;
    const Outcome first = save(page, {}, [&](const QProcess &program) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return isRun(u" --newline "_s); }, 60'000));
        const auto process = static_cast<pid_t>(program.processId());
        ::kill(process, SIGSTOP);
        second = save(page, {u"--trim=3-4"_s}, [&](const QProcess &) {
            EXPECT_TRUE(QTest::qWaitFor([&] { return isRun(u" -J "_s); }, 60'000));
            EXPECT_TRUE(QTest::qWaitFor([&] { return !isRun(u" -J "_s); }, 60'000));
            ::kill(process, SIGCONT);
        });
    });
    EXPECT_EQ(first.exitStatus, 0) << first.standardError.toStdString();
    EXPECT_EQ(second.exitStatus, 0) << second.standardError.toStdString();
    EXPECT_THAT(second.standardError.toStdString(),
                HasSubstr("Another Clipwren is saving this video. Waiting…"));
    EXPECT_THAT(savedFiles(), UnorderedElementsAre(net + u".mp4"_s, net + u" — trimmed.mp4"_s));
    EXPECT_NEAR(*m_inspector.inspect(first.standardOutput.trimmed()).duration, 12, 0.1);
    EXPECT_NEAR(*m_inspector.inspect(second.standardOutput.trimmed()).duration, 1, 0.1);
}

TEST_F(SaveTest, anInterruptStopsTheToolAndLeavesNothingRunning)
{
    const std::pair<ToolAtWork, int> cases[] = {
        {lookUpAtWork, SIGTERM}, {downloadAtWork, SIGINT},  {conversionAtWork, SIGTERM},
        {lookUpAtWork, SIGKILL}, {downloadAtWork, SIGKILL}, {conversionAtWork, SIGKILL},
    };
    for (const auto &[tool, signal] : cases) {
        SCOPED_TRACE(tool.name);
        const QString format = u"--format=proRes422"_s;
        const Outcome outcome = save(markedPage(tool.page), {format}, [&](const QProcess &program) {
            EXPECT_TRUE(QTest::qWaitFor([&] { return isAtWork(tool); }, 60'000));
            ::kill(static_cast<pid_t>(program.processId()), signal);
        });
        EXPECT_EQ(outcome.exitStatus, signal == SIGKILL ? 137 : 130)
            << outcome.standardError.toStdString();
        EXPECT_EQ(outcome.standardOutput, QString());
    }
}

TEST_F(ProgramTest, describesItselfAndAnswersWrongUseWithASentence)
{
    const QString address = u"http://127.0.0.1/watch?v=tide-clock-01"_s;
    const std::tuple<QStringList, int, const char *> cases[] = {
        {{u"--help"_s}, 0, "clipwren save"},
        {{u"--version"_s}, 0, CLIPWREN_VERSION},
        {{u"keep"_s, address}, 2, "Usage: clipwren"},
        {{u"save"_s}, 2, "Usage: clipwren"},
        {{u"save"_s, u"--format"_s, u"mp4"_s, address}, 2, "Usage: clipwren"},
        {{u"save"_s, u"--trim=1-2"_s, u"--format=audioMP3"_s, address}, 2, "Audio is saved whole"},
    };
    for (const auto &[arguments, exitStatus, part] : cases) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.exitStatus, exitStatus);
        const auto &[said, other] = exitStatus == 0
            ? std::pair(outcome.standardOutput, outcome.standardError)
            : std::pair(outcome.standardError, outcome.standardOutput);
        EXPECT_THAT(said.toStdString(), HasSubstr(part));
        EXPECT_EQ(other, QString());
    }
}

} // namespace
} // namespace clipwren::test
