#include "core/media/FfmpegService.h"
#include "core/process/ProcessRunner.h"
#include "support/FakeTool.h"

#include <QDir>
#include <QFile>

#include <gmock/gmock.h>
#include <unistd.h>

namespace clipwren {
namespace {

using testing::DoubleEq;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

// Writes to its last argument, as ffmpeg does.
constexpr const char *writesOutput = "for output; do :; done; echo new > \"$output\"; ";

class Transcode : public testing::Test {
protected:
    Transcode()
    {
        QDir(m_tools.directory()).mkpath(QStringLiteral("clips"));
        fakeFfmpeg(writesOutput);
        m_tools.add(QStringLiteral("ffprobe"), QStringLiteral("echo 10.0"));
    }

    void fakeFfmpeg(const std::string &body)
    {
        m_tools.add(QStringLiteral("ffmpeg"), QString::fromStdString(body));
    }
    FfmpegService service() const
    {
        return {m_tools.path(QStringLiteral("ffmpeg")), m_tools.path(QStringLiteral("ffprobe"))};
    }
    QStringList arguments() const { return m_tools.arguments(QStringLiteral("ffmpeg")); }

    QString clip(const QString &name) const
    {
        return m_tools.path(QStringLiteral("clips/") + name);
    }
    void write(const QString &name, const char *content) const
    {
        QFile file(clip(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    QByteArray read(const QString &name) const
    {
        QFile file(clip(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    QStringList clips() const
    {
        return QDir(clip(QString()))
            .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot);
    }

    test::FakeTools m_tools;
};

TEST_F(Transcode, runsTheExactCommandLine)
{
    const QStringList h264{
        QStringLiteral("-c:v"),      QStringLiteral("libx264"),   QStringLiteral("-preset"),
        QStringLiteral("veryfast"),  QStringLiteral("-crf"),      QStringLiteral("20"),
        QStringLiteral("-pix_fmt"),  QStringLiteral("yuv420p"),   QStringLiteral("-c:a"),
        QStringLiteral("aac"),       QStringLiteral("-b:a"),      QStringLiteral("192k"),
        QStringLiteral("-movflags"), QStringLiteral("+faststart")};
    const QStringList proRes{QStringLiteral("-c:v"),       QStringLiteral("prores_ks"),
                             QStringLiteral("-profile:v"), QStringLiteral("3"),
                             QStringLiteral("-vendor"),    QStringLiteral("apl0"),
                             QStringLiteral("-pix_fmt"),   QStringLiteral("yuv422p10le"),
                             QStringLiteral("-c:a"),       QStringLiteral("pcm_s16le")};
    EncodeProfile upperCase = EncodeProfile::proRes422();
    upperCase.ext = QStringLiteral("MP4");
    struct Case {
        EncodeProfile profile;
        std::optional<TrimRange> trim;
        QStringList encoding;
        const char *start;
        const char *length;
    };
    const Case cases[] = {
        {EncodeProfile::h264Mp4(), std::nullopt, h264, nullptr, nullptr},
        {EncodeProfile::proRes422(), std::nullopt, proRes, nullptr, nullptr},
        {upperCase, std::nullopt, proRes, nullptr, nullptr},
        {EncodeProfile::h264Mp4(), TrimRange{12.5, 42}, h264, "12.500", "29.500"},
        {EncodeProfile::proRes422(), TrimRange{0, 10.0004}, proRes, "0.000", "10.000"},
        {EncodeProfile::h264Mp4(), TrimRange{5, 5}, h264, "5.000", "0.001"},
        {EncodeProfile::h264Mp4(), TrimRange{7200.0625, 3}, h264, "7200.062", "0.001"},
    };
    const QString input = clip(QStringLiteral("Talk.webm"));
    for (const Case &c : cases) {
        const QString output =
            service().transcode(input, c.profile, c.trim, QStringLiteral("QT"), {});
        QStringList expected{QStringLiteral("-hide_banner"), QStringLiteral("-y")};
        if (c.start)
            expected << QStringLiteral("-ss") << QString::fromUtf8(c.start);
        expected << QStringLiteral("-i") << input;
        if (c.length)
            expected << QStringLiteral("-t") << QString::fromUtf8(c.length);
        expected << c.encoding << QStringLiteral("-progress") << QStringLiteral("pipe:1")
                 << QStringLiteral("-nostats") << output;
        EXPECT_EQ(arguments(), expected);
    }
}

TEST_F(Transcode, namesTheOutputAfterTheInput)
{
    struct Case {
        QString input;
        EncodeProfile profile;
        QString suffix;
        QString output;
    };
    const Case cases[] = {
        {QStringLiteral("Talk.webm"), EncodeProfile::h264Mp4(), QStringLiteral("trimmed"),
         QStringLiteral("Talk — trimmed.mp4")},
        {QStringLiteral("Talk.webm"), EncodeProfile::proRes422(), QString(),
         QStringLiteral("Talk.mov")},
        {QStringLiteral("Clip.part1.webm"), EncodeProfile::h264Mp4(), QStringLiteral("QT"),
         QStringLiteral("Clip.part1 — QT.mp4")},
        {QStringLiteral("v1.2/Talk"), EncodeProfile::h264Mp4(), QString(),
         QStringLiteral("v1.2/Talk.mp4")},
        {QStringLiteral(".hidden"), EncodeProfile::h264Mp4(), QString(),
         QStringLiteral(".hidden.mp4")},
    };
    QDir(clip(QString())).mkdir(QStringLiteral("v1.2"));
    for (const Case &c : cases)
        EXPECT_EQ(service().transcode(clip(c.input), c.profile, {}, c.suffix, {}), clip(c.output));
}

TEST_F(Transcode, neverWritesOverItsInput)
{
    const QString input = QStringLiteral("Talk.mov");
    write(input, "old");
    const auto run = [&](const QString &name) {
        return service().transcode(clip(name), EncodeProfile::proRes422(), {}, {}, {});
    };
    EXPECT_EQ(run(input), clip(QStringLiteral("Talk 2.mov")));
    EXPECT_EQ(run(input), clip(QStringLiteral("Talk 3.mov")));

    // The name to write is another name of the input, or leads to it.
    ASSERT_TRUE(QFile::link(clip(input), clip(QStringLiteral("Linked.mov"))));
    ASSERT_TRUE(QFile::link(QStringLiteral("Linked.mov"), clip(QStringLiteral("Linked.webm"))));
    EXPECT_EQ(run(QStringLiteral("Linked.webm")), clip(QStringLiteral("Linked 2.mov")));
    ASSERT_EQ(::link(QFile::encodeName(clip(input)).constData(),
                     QFile::encodeName(clip(QStringLiteral("Talk.mkv"))).constData()),
              0);
    EXPECT_EQ(run(QStringLiteral("Talk.mkv")), clip(QStringLiteral("Talk 4.mov")));
    EXPECT_EQ(run(QStringLiteral("Missing.mov")), clip(QStringLiteral("Missing 2.mov")));
    EXPECT_EQ(read(input), "old");
}

TEST_F(Transcode, replacesAnEarlierFileOnlyByAWholeOne)
{
    const auto run = [&] {
        return service().transcode(clip(QStringLiteral("Talk.webm")), EncodeProfile::h264Mp4(), {},
                                   {}, {});
    };
    const QString output = QStringLiteral("Talk.mp4");
    write(QStringLiteral("Talk.webm"), "input");
    write(QStringLiteral("Earlier Talk.mp4"), "someone's");

    fakeFfmpeg(std::string(writesOutput) + "exit 1");
    EXPECT_THROW(run(), ProcessRunner::ProcessError);
    EXPECT_THAT(clips(), UnorderedElementsAre(u"Talk.webm", u"Earlier Talk.mp4"));

    write(output, "earlier");
    EXPECT_THROW(run(), ProcessRunner::ProcessError);
    EXPECT_EQ(read(output), "earlier");
    fakeFfmpeg("exit 0");
    run();
    EXPECT_EQ(read(output), "earlier");
    fakeFfmpeg(writesOutput);
    run();
    EXPECT_EQ(read(output), "new\n");

    QFile::remove(service().ffmpegPath);
    EXPECT_THROW(run(), std::system_error);
    EXPECT_EQ(read(output), "new\n");
    EXPECT_THAT(clips(), UnorderedElementsAre(u"Talk.webm", u"Talk.mp4", u"Earlier Talk.mp4"));
    EXPECT_EQ(read(QStringLiteral("Earlier Talk.mp4")), "someone's");
}

TEST_F(Transcode, stoppingIsACancellationAndLeavesNoFile)
{
    fakeFfmpeg(std::string("trap 'exit 255' TERM; ") + writesOutput
               + "echo out_time_us=5000000; while :; do sleep 0.01; done");
    std::stop_source source;
    EXPECT_THROW(service().transcode(
                     clip(QStringLiteral("Talk.webm")), EncodeProfile::h264Mp4(), {}, {},
                     [&](double) { source.request_stop(); }, source.get_token()),
                 CancellationError);
    EXPECT_THAT(clips(), ElementsAre());

    // Nothing is started any more.
    const int runs = m_tools.runCount(QStringLiteral("ffmpeg"));
    EXPECT_THROW(service().transcode(clip(QStringLiteral("Talk.webm")), EncodeProfile::h264Mp4(),
                                     TrimRange{0, 1}, {}, {}, source.get_token()),
                 CancellationError);
    EXPECT_EQ(m_tools.runCount(QStringLiteral("ffmpeg")), runs);
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
        service().transcode(clip(QStringLiteral("Talk.webm")), EncodeProfile::h264Mp4(), trim, {},
                            [&](double fraction) { fractions.push_back(fraction); });
        return fractions;
    };
    EXPECT_THAT(run(std::nullopt), ElementsAre(0.5, 1.0, 0.0, 0.2, 1.0));
    EXPECT_THAT(run(TrimRange{100, 120}), ElementsAre(0.25, DoubleEq(0.6), 0.0, 0.1, 1.0));
    // Without a length only the end is known.
    for (const char *probe : {"echo N/A", "echo 10; exit 1"}) {
        m_tools.add(QStringLiteral("ffprobe"), QString::fromUtf8(probe));
        EXPECT_THAT(run(std::nullopt), ElementsAre(1.0));
    }
}

} // namespace
} // namespace clipwren
