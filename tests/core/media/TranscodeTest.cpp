#include "core/media/FfmpegService.h"
#include "core/media/OutputFile.h"
#include "core/process/ProcessRunner.h"
#include "support/FakeTool.h"
#include "support/Files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;
using testing::DoubleEq;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

// Writes to its last argument, as ffmpeg does.
constexpr const char *writesOutput = "for output; do :; done; echo new > \"$output\"; ";

class Transcode : public testing::Test {
protected:
    Transcode()
    {
        QDir(m_tools.directory()).mkpath(u"clips"_s);
        fakeFfmpeg(writesOutput);
        m_tools.add(u"ffprobe"_s, u"echo 10.0"_s);
    }

    void fakeFfmpeg(const std::string &body)
    {
        m_tools.add(u"ffmpeg"_s, QString::fromStdString(body));
    }
    FfmpegService service() const
    {
        return {m_tools.path(u"ffmpeg"_s), m_tools.path(u"ffprobe"_s)};
    }

    QString clip(const QString &name) const { return m_tools.path(u"clips/"_s + name); }
    void write(const QString &name, const QString &content) const
    {
        m_tools.write(u"clips/"_s + name, content);
    }
    QByteArray read(const QString &name) const { return test::readFile(clip(name)); }
    QStringList clips() const
    {
        return QDir(clip(QString()))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    /// Does it in a process of its own, true where that ends well.
    static bool inOtherProcess(const std::function<void()> &action)
    {
        const pid_t child = ::fork();
        if (child == 0) {
            action();
            ::_exit(0);
        }
        int status = 0;
        return ::waitpid(child, &status, 0) == child && status == 0;
    }
    void restoreAfterKill() const { OutputFile::restoreAfterKill(clip({}).chopped(1)); }

    test::FakeTools m_tools;
};

TEST_F(Transcode, runsTheExactCommandLine)
{
    const QString h264 = u"-c:v|libx264|-preset|veryfast|-crf|20|-pix_fmt|yuv420p|"
                         "-c:a|aac|-b:a|192k|-movflags|+faststart"_s;
    const QString proRes = u"-c:v|prores_ks|-profile:v|3|-vendor|apl0|-pix_fmt|yuv422p10le|"
                           "-c:a|pcm_s16le"_s;
    EncodeProfile upperCase = EncodeProfile::proRes422();
    upperCase.ext = u"MP4"_s;
    const std::tuple<EncodeProfile, std::optional<TrimRange>, QString, QString, QString> cases[] = {
        {EncodeProfile::h264Mp4(), {}, {}, {}, h264},
        {EncodeProfile::proRes422(), {}, {}, {}, proRes},
        {upperCase, {}, {}, {}, proRes},
        {EncodeProfile::h264Mp4(), TrimRange{12.5, 42}, u"-ss|12.500|"_s, u"-t|29.500|"_s, h264},
        {EncodeProfile::proRes422(), TrimRange{0, 10.0004}, u"-ss|0.000|"_s, u"-t|10.000|"_s,
         proRes},
        {EncodeProfile::h264Mp4(), TrimRange{5, 5}, u"-ss|5.000|"_s, u"-t|0.001|"_s, h264},
        {EncodeProfile::h264Mp4(), TrimRange{7200.0625, 3}, u"-ss|7200.062|"_s, u"-t|0.001|"_s,
         h264},
    };
    const QString input = clip(u"Talk.webm"_s);
    for (const auto &[profile, trim, start, length, encoding] : cases) {
        const QString output = service().transcode(input, profile, trim, u"QT"_s, {});
        EXPECT_EQ(m_tools.arguments(u"ffmpeg"_s).join(u'|'),
                  u"-hide_banner|-y|"_s + start + u"-i|"_s + input + u'|' + length + encoding
                      + u"|-progress|pipe:1|-nostats|"_s + output);
    }
}

TEST_F(Transcode, namesTheOutputAfterTheInput)
{
    const std::tuple<QString, EncodeProfile, QString, QString> cases[] = {
        {u"Talk.webm"_s, EncodeProfile::h264Mp4(), u"trimmed"_s, u"Talk — trimmed.mp4"_s},
        {u"Talk.webm"_s, EncodeProfile::proRes422(), {}, u"Talk.mov"_s},
        {u"Clip.part1.webm"_s, EncodeProfile::h264Mp4(), u"QT"_s, u"Clip.part1 — QT.mp4"_s},
        {u"v1.2/Talk"_s, EncodeProfile::h264Mp4(), {}, u"v1.2/Talk.mp4"_s},
        {u".hidden"_s, EncodeProfile::h264Mp4(), {}, u".hidden.mp4"_s},
    };
    QDir(clip(QString())).mkdir(u"v1.2"_s);
    for (const auto &[input, profile, suffix, output] : cases)
        EXPECT_EQ(service().transcode(clip(input), profile, {}, suffix, {}), clip(output));
}

TEST_F(Transcode, neverWritesOverItsInput)
{
    const QString input = u"Talk.mov"_s;
    write(input, u"old"_s);
    const auto run = [&](const QString &name) {
        return service().transcode(clip(name), EncodeProfile::proRes422(), {}, {}, {});
    };
    EXPECT_EQ(run(input), clip(u"Talk 2.mov"_s));
    EXPECT_EQ(run(input), clip(u"Talk 3.mov"_s));

    // The name to write is another name of the input, or leads to it.
    ASSERT_TRUE(QFile::link(clip(input), clip(u"Linked.mov"_s)));
    ASSERT_TRUE(QFile::link(u"Linked.mov"_s, clip(u"Linked.webm"_s)));
    EXPECT_EQ(run(u"Linked.webm"_s), clip(u"Linked 2.mov"_s));
    ASSERT_EQ(::link(QFile::encodeName(clip(input)).constData(),
                     QFile::encodeName(clip(u"Talk.mkv"_s)).constData()),
              0);
    EXPECT_EQ(run(u"Talk.mkv"_s), clip(u"Talk 4.mov"_s));
    EXPECT_EQ(run(u"Missing.mov"_s), clip(u"Missing 2.mov"_s));
    EXPECT_EQ(read(input), "old");
}

TEST_F(Transcode, replacesAnEarlierFileOnlyByAWholeOne)
{
    const auto run = [&] {
        return service().transcode(clip(u"Talk.webm"_s), EncodeProfile::h264Mp4(), {}, {}, {});
    };
    const QString output = u"Talk.mp4"_s;
    write(u"Talk.webm"_s, u"input"_s);
    write(u"Earlier Talk.mp4"_s, u"someone's"_s);

    fakeFfmpeg(std::string(writesOutput) + "exit 1");
    EXPECT_THROW(run(), ProcessRunner::ProcessError);
    EXPECT_THAT(clips(), UnorderedElementsAre(u"Talk.webm", u"Earlier Talk.mp4"));

    write(output, u"earlier"_s);
    EXPECT_THROW(run(), ProcessRunner::ProcessError);
    EXPECT_EQ(read(output), "earlier");
    fakeFfmpeg("exit 0");
    run();
    EXPECT_EQ(read(output), "earlier");
    fakeFfmpeg(writesOutput);
    run();
    EXPECT_EQ(read(output), "new\n");

    const auto refuse = [&](const QString &) {
        write(output, u"short"_s);
        throw Error(u"too short"_s);
    };
    EXPECT_THROW(
        service().transcode(clip(u"Talk.webm"_s), EncodeProfile::h264Mp4(), {}, {}, {}, refuse),
        Error);
    EXPECT_EQ(read(output), "new\n");

    QFile::remove(service().ffmpegPath);
    EXPECT_THROW(run(), std::system_error);
    EXPECT_EQ(read(output), "new\n");
    EXPECT_THAT(clips(), UnorderedElementsAre(u"Talk.webm", u"Talk.mp4", u"Earlier Talk.mp4"));
    EXPECT_EQ(read(u"Earlier Talk.mp4"_s), "someone's");
}

TEST_F(Transcode, leavesAFolderAndADanglingLinkOfThatNameAlone)
{
    const auto run = [&](const QString &name) {
        service().transcode(clip(name), EncodeProfile::h264Mp4(), {}, {}, {});
    };
    QDir(clip({})).mkdir(u"Folder.mp4"_s);
    write(u"Folder.mp4/mine"_s, u"mine"_s);
    ASSERT_TRUE(QFile::link(u"gone"_s, clip(u"Link.mp4"_s)));
    fakeFfmpeg(std::string(writesOutput) + "exit 1");
    EXPECT_THROW(run(u"Folder.webm"_s), ProcessRunner::ProcessError);
    EXPECT_THROW(run(u"Link.webm"_s), ProcessRunner::ProcessError);
    EXPECT_EQ(read(u"Folder.mp4/mine"_s), "mine");
    EXPECT_EQ(QFile::symLinkTarget(clip(u"Link.mp4"_s)), clip(u"gone"_s));
    EXPECT_THAT(clips(), UnorderedElementsAre(u"Folder.mp4", u"Link.mp4"));

    // Nothing is written where the link led to.
    fakeFfmpeg(writesOutput);
    run(u"Link.webm"_s);
    EXPECT_EQ(read(u"Link.mp4"_s), "new\n");
    EXPECT_FALSE(QFile::exists(clip(u"gone"_s)));
}

TEST_F(Transcode, replacesFilesWhoseNamesAreAsLongAsCanBe)
{
    for (const int bytes : {247, 248, 255}) {
        const QString input = QString(bytes - 4, u'x');
        for (int round = 0; round < 2; ++round) {
            const QString output =
                service().transcode(clip(input), EncodeProfile::h264Mp4(), {}, {}, {});
            EXPECT_EQ(read(QFileInfo(output).fileName()), "new\n") << bytes;
        }
    }
    EXPECT_EQ(clips().size(), 3);
}

TEST_F(Transcode, whatAKilledProcessMovedAsideIsPutBack)
{
    const QString output = u"Talk.mp4"_s;
    const auto leaveHalf = [&](bool killed) {
        write(output, u"earlier"_s);
        return inOtherProcess([&] {
            const OutputFile file(clip(output));
            write(output, u"half"_s);
            // What another process does meanwhile is no business of this one's.
            restoreAfterKill();
            if (killed)
                ::_exit(read(output) == "half" ? 0 : 1);
        });
    };
    ASSERT_TRUE(leaveHalf(true));
    EXPECT_EQ(read(output), "half");
    EXPECT_EQ(clips().size(), 2);
    // Not all that looks like ours is.
    QDir(clip({})).mkpath(u".clipwren-earlier-mine"_s);
    write(u".clipwren-earlier-123456"_s, u"a file"_s);

    restoreAfterKill();

    EXPECT_EQ(read(output), "earlier");
    EXPECT_THAT(
        clips(),
        UnorderedElementsAre(output, u".clipwren-earlier-mine", u".clipwren-earlier-123456"));
    ASSERT_TRUE(leaveHalf(false));
    EXPECT_EQ(read(output), "earlier");
}

TEST_F(Transcode, aKeptFileStaysWhateverAToolDoesToIt)
{
    const QString film = u"Talk.mp4"_s;
    const std::function<void()> tools[] = {
        [] {},
        [&] { QFile::remove(clip(film)); },
        [&] {
            QFile::remove(clip(film));
            write(film, u"another"_s);
        },
    };
    for (const auto &tool : tools) {
        write(film, u"earlier"_s);
        {
            const KeptFile kept(clip(film));
            EXPECT_EQ(read(film), "earlier");
            tool();
        }
        EXPECT_EQ(read(film), "earlier");
        EXPECT_THAT(clips(), UnorderedElementsAre(film));

        ASSERT_TRUE(inOtherProcess([&] {
            const KeptFile kept(clip(film));
            tool();
            ::_exit(0); // as if killed
        }));
        restoreAfterKill();
        EXPECT_EQ(read(film), "earlier");
        EXPECT_THAT(clips(), UnorderedElementsAre(film));
    }
}

TEST_F(Transcode, stoppingIsACancellationAndLeavesNoFile)
{
    fakeFfmpeg(std::string("trap 'exit 255' TERM; ") + writesOutput
               + "echo out_time_us=5000000; while :; do sleep 0.01; done");
    std::stop_source source;
    EXPECT_THROW(service().transcode(
                     clip(u"Talk.webm"_s), EncodeProfile::h264Mp4(), {}, {},
                     [&](double) { source.request_stop(); }, {}, source.get_token()),
                 CancellationError);
    EXPECT_THAT(clips(), ElementsAre());

    // Nothing is started any more.
    const int runs = m_tools.runCount(u"ffmpeg"_s);
    EXPECT_THROW(service().transcode(clip(u"Talk.webm"_s), EncodeProfile::h264Mp4(),
                                     TrimRange{0, 1}, {}, {}, {}, source.get_token()),
                 CancellationError);
    EXPECT_EQ(m_tools.runCount(u"ffmpeg"_s), runs);
}

TEST_F(Transcode, reportsProgressAsAFractionOfTheLength)
{
    fakeFfmpeg(
        std::string(writesOutput)
        + "for line in frame=1 out_time_us=5000000 out_time_us=12000000 out_time_us=-3"
          " out_time_us=N/A out_time_us= 'out_time_us= 1' out_time_us=2e6 out_time=00:00:05.0"
          " out_time_ms=5000000 progress=continue 'progress=end ' end progress=end;"
          " do echo \"$line\"; done");
    std::vector<double> fractions;
    const auto run = [&](const std::optional<TrimRange> &trim) {
        fractions.clear();
        service().transcode(clip(u"Talk.webm"_s), EncodeProfile::h264Mp4(), trim, {},
                            [&](double fraction) { fractions.push_back(fraction); });
        return fractions;
    };
    EXPECT_THAT(run(std::nullopt), ElementsAre(0.5, 1.0, 0.0, 0.2, 1.0));
    EXPECT_THAT(run(TrimRange{100, 120}), ElementsAre(0.25, DoubleEq(0.6), 0.0, 0.1, 1.0));
    // Without a length only the end is known.
    for (const char *probe : {"echo N/A", "echo 10; exit 1"}) {
        m_tools.add(u"ffprobe"_s, QString::fromUtf8(probe));
        EXPECT_THAT(run(std::nullopt), ElementsAre(1.0));
    }
}

} // namespace
} // namespace clipwren
