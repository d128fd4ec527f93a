#include "core/ytdlp/YtDlpService.h"

#include "core/process/ProcessRunner.h"
#include "support/FakeTool.h"
#include "support/LeakCheck.h"

#include <QDir>
#include <QFile>

#include <gmock/gmock.h>
#include <system_error>

namespace clipwren {
namespace {

using FetchError = YtDlpService::FetchError;
using testing::ElementsAre;

const QString address = QStringLiteral("https://v.example/watch?v=1&t=2 3");

class YtDlp : public testing::Test {
protected:
    YtDlpService service(const char *body)
    {
        return {.binaryPath = m_tools.add(QStringLiteral("yt-dlp"), QString::fromUtf8(body)),
                .ffmpegPath = QStringLiteral("/opt/my tools/ffmpeg")};
    }
    QStringList arguments() const { return m_tools.arguments(QStringLiteral("yt-dlp")); }
    QString folder() const { return m_tools.path(QStringLiteral("a/b")); }

    QString download(const char *body, const YtDlpService::ProgressHandler &onProgress = {})
    {
        return service(body).download(address, folder(), OutputFormat::proRes422, {}, onProgress);
    }

    test::FakeTools m_tools;
};

TEST_F(YtDlp, fetchInfoReadsTheDocumentAndKeepsTheLog)
{
    QStringList statuses;
    const auto [info, log] = service(R"(
        for line in '[youtube] abc: Downloading webpage' 'plain [x]' '[info]' '[a] [b] c' '[] d' '[e'; do
            echo "$line" >&2
        done
        echo '{"title": "Ü"}')")
                                 .fetchInfo(address, [&](const QString &s) { statuses.append(s); });
    EXPECT_EQ(info.title, u"Ü");
    EXPECT_TRUE(log.startsWith(u"[youtube] abc: Downloading webpage\nplain [x]\n"));
    EXPECT_THAT(
        statuses,
        ElementsAre(u"abc: Downloading webpage", u"plain [x]", u"", u"[b] c", u"[] d", u"[e"));
    EXPECT_THAT(arguments(),
                ElementsAre(u"-J", u"-v", u"--no-warnings", u"--no-playlist", u"--socket-timeout",
                            u"20", u"--retries", u"2", u"--", address));
}

TEST_F(YtDlp, fetchInfoSaysWhyThereIsNoMetadata)
{
    struct Case {
        const char *body;
        FetchError::Kind kind;
    };
    const Case cases[] = {
        {"echo log >&2", FetchError::Kind::emptyResponse},
        {"echo log >&2; echo", FetchError::Kind::malformedJSON},
        {"echo log >&2; echo WARNING; echo '{}'", FetchError::Kind::malformedJSON},
        {R"(echo log >&2; echo '{"formats": [{"height": "1"}]}')", FetchError::Kind::malformedJSON},
    };
    for (const Case &c : cases) {
        try {
            service(c.body).fetchInfo(address, {});
            ADD_FAILURE() << c.body;
        } catch (const FetchError &error) {
            EXPECT_EQ(error.kind(), c.kind) << c.body;
            EXPECT_EQ(error.log(), u"log\n");
            EXPECT_EQ(error.underlying().has_value(), c.kind == FetchError::Kind::malformedJSON);
        }
    }
}

TEST_F(YtDlp, fetchInfoPassesOnTheFailureOfTheTool)
{
    try {
        service("echo 'ERROR: Private video' >&2; exit 1").fetchInfo(address, {});
        ADD_FAILURE();
    } catch (const ProcessRunner::ProcessError &error) {
        EXPECT_EQ(error.exitCode(), 1);
        EXPECT_EQ(error.standardError(), u"ERROR: Private video\n");
    }
    EXPECT_THROW(YtDlpService({QStringLiteral("/nowhere/yt-dlp"), {}}).fetchInfo(address, {}),
                 std::system_error);
}

TEST_F(YtDlp, lookUpsEndAHangingToolAtTheirTimeLimit)
{
    // Partial output does not make it an answer.
    YtDlpService hanging = service("echo '{}'; exec sleep 30");
    hanging.infoTimeout = std::chrono::milliseconds(100);
    hanging.previewTimeout = std::chrono::milliseconds(100);
    EXPECT_THROW(hanging.fetchInfo(address, {}), ProcessRunner::TimeoutError);
    EXPECT_EQ(test::childCount(), 0);
    EXPECT_THROW(hanging.fetchPreviewURL(address), ProcessRunner::TimeoutError);
    EXPECT_TRUE(test::eventually([] { return test::childCount() == 0; }));
}

TEST_F(YtDlp, stoppingALookUpIsACancellationHoweverLongTheToolTakesToEnd)
{
    YtDlpService slow =
        service("trap 'sleep 0.6; exit 143' TERM; echo ready >&2; while :; do sleep 0.01; done");
    slow.infoTimeout = std::chrono::milliseconds(500);
    std::stop_source source;
    const auto stopAtFirstLine = [&](const QString &) { source.request_stop(); };
    EXPECT_THROW(slow.fetchInfo(address, stopAtFirstLine, source.get_token()), CancellationError);
}

TEST_F(YtDlp, fetchPreviewURLTakesTheFirstLineThatIsAnAddress)
{
    struct Case {
        const char *body;
        std::optional<const char *> address;
    };
    const Case cases[] = {
        {"echo https://a.example/x?y=%20; echo https://b.example/", "https://a.example/x?y=%20"},
        {R"(printf '\r\n\n https://a.example/1 \rhttps://b.example/')", "https://a.example/1"},
        {"", std::nullopt},
        {"echo; echo", std::nullopt},
        {"echo '  '; echo https://b.example/", std::nullopt},
        {"echo 'not an address'; echo https://b.example/", std::nullopt},
    };
    for (const Case &c : cases) {
        const auto url = service(c.body).fetchPreviewURL(address);
        ASSERT_EQ(url.has_value(), c.address.has_value()) << c.body;
        if (url) {
            EXPECT_EQ(url->toString(QUrl::FullyEncoded).toStdString(), *c.address);
        }
    }
    EXPECT_THAT(arguments(),
                ElementsAre(u"-g", u"-f",
                            u"best[ext=mp4][protocol^=http][acodec!=none][vcodec!=none]/"
                            "best[height<=720][ext=mp4][acodec!=none]/18",
                            u"--no-warnings", u"--no-playlist", u"--socket-timeout", u"15", u"--",
                            address));
}

TEST_F(YtDlp, downloadAsksForEachFormatInItsWay)
{
    const QStringList aac{QStringLiteral("--merge-output-format"), QStringLiteral("mp4"),
                          QStringLiteral("--postprocessor-args"),
                          QStringLiteral("ffmpeg:-c:a aac -b:a 192k")};
    struct Case {
        OutputFormat format;
        const char *selector;
        QStringList rest;
    };
    const Case cases[] = {
        {OutputFormat::bestResolution, "bv*+ba[ext=m4a]/bv*+ba/b", aac},
        {OutputFormat::macCompatible,
         "bv*[vcodec^=avc1]+ba[ext=m4a]/b[ext=mp4]/bv*[vcodec^=avc1]+ba/b[vcodec^=avc1]", aac},
        {OutputFormat::proRes422, "bv*+ba/b", aac.first(2)},
        {OutputFormat::audioMP3,
         "ba/b",
         {QStringLiteral("--extract-audio"), QStringLiteral("--audio-format"),
          QStringLiteral("mp3"), QStringLiteral("--audio-quality"), QStringLiteral("0")}},
    };
    const YtDlpService yt = service("echo filepath:/x");
    for (const Case &c : cases) {
        yt.download(address, folder(), c.format, QStringLiteral("50% of a/b"), {});
        const QStringList expected =
            QStringList{QStringLiteral("--no-playlist"),
                        QStringLiteral("--no-warnings"),
                        QStringLiteral("--newline"),
                        QStringLiteral("--progress"),
                        QStringLiteral("--progress-template"),
                        QStringLiteral("download:%(progress._percent_str)s||"
                                       "%(progress._speed_str)s||%(progress._eta_str)s"),
                        QStringLiteral("--socket-timeout"),
                        QStringLiteral("30"),
                        QStringLiteral("--retries"),
                        QStringLiteral("3"),
                        QStringLiteral("--ffmpeg-location"),
                        QStringLiteral("/opt/my tools/ffmpeg"),
                        QStringLiteral("-o"),
                        folder() + QStringLiteral("/50%% of a-b [%(id)s].%(ext)s"),
                        QStringLiteral("--print"),
                        QStringLiteral("after_move:filepath:%(filepath)s"),
                        QStringLiteral("-f"),
                        QString::fromUtf8(c.selector)}
            + c.rest + QStringList{QStringLiteral("--"), address};
        EXPECT_EQ(arguments(), expected) << c.selector;
    }
}

TEST_F(YtDlp, downloadNamesTheFileAfterTheTitle)
{
    qputenv("CLIPWREN_TEST_VARIABLE", "/elsewhere");
    const QByteArray longTitle = QByteArray("漢").repeated(100);
    const QString odd = m_tools.path(QStringLiteral("100%%(id)s"));
    struct Case {
        std::optional<const char *> title;
        QString outputTemplate;
    };
    const Case cases[] = {
        {std::nullopt, QStringLiteral("%(title).200B [%(id)s].%(ext)s")},
        {"", QStringLiteral("%(title).200B [%(id)s].%(ext)s")},
        {"...", QStringLiteral("Untitled [%(id)s].%(ext)s")},
        // 100 characters of 3 bytes, too many for a file's name.
        {longTitle.constData(),
         QString::fromUtf8("漢").repeated(66) + QStringLiteral(" [%(id)s].%(ext)s")},
        // The tool would put the variable's value there.
        {"$CLIPWREN_TEST_VARIABLE, ${CLIPWREN_TEST_VARIABLE} or $5",
         QStringLiteral("$%(none|)sCLIPWREN_TEST_VARIABLE, $%(none|)s{CLIPWREN_TEST_VARIABLE} or $5"
                        " [%(id)s].%(ext)s")},
    };
    const YtDlpService yt = service("echo filepath:/x");
    for (const Case &c : cases) {
        const auto title = c.title ? std::optional(QString::fromUtf8(*c.title)) : std::nullopt;
        yt.download(address, odd, OutputFormat::audioMP3, title, {});
        EXPECT_EQ(arguments()[13],
                  m_tools.path(QStringLiteral("100%%%%(id)s/")) + c.outputTemplate);
    }
    EXPECT_TRUE(QDir(odd).exists());
}

TEST_F(YtDlp, downloadReturnsTheLastPathExactlyAsPrinted)
{
    const char *body = "echo filepath:/first; echo 'filepath: /Clips/Clip: [abc] .mp4 '";
    EXPECT_EQ(download(body), u" /Clips/Clip: [abc] .mp4 ");
}

TEST_F(YtDlp, downloadWithoutAPathIsAFailureOfOurOwn)
{
    for (const char *body : {"echo done", "echo filepath:", "echo ' filepath:/x'"}) {
        try {
            download(body);
            ADD_FAILURE() << body;
        } catch (const ClipwrenError &error) {
            EXPECT_EQ(error.code(), ClipwrenError::Code::NoOutputPath);
            EXPECT_EQ(error.errorDescription(),
                      u"yt-dlp finished without reporting an output path");
        }
    }
    EXPECT_THROW(download("echo filepath:/x; exit 1"), ProcessRunner::ProcessError);
}

TEST_F(YtDlp, downloadReportsProgressWhileTheToolRunsAndCanBeStopped)
{
    std::stop_source source;
    std::vector<std::pair<double, QString>> reports;
    const auto yt = service("echo '[download] Destination: x'\n"
                            "echo '  50.0%||   1.20MiB/s||00:10'; exec sleep 30");
    EXPECT_THROW(yt.download(
                     address, folder(), OutputFormat::bestResolution, {},
                     [&](double fraction, const QString &status) {
                         reports.emplace_back(fraction, status);
                         source.request_stop();
                     },
                     source.get_token()),
                 CancellationError);
    EXPECT_THAT(reports, ElementsAre(std::pair(0.5, QString::fromUtf8("1.20MiB/s · 00:10"))));
}

TEST_F(YtDlp, downloadSaysWhyTheFolderCannotBeMade)
{
    QFile file(m_tools.path(QStringLiteral("a")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    try {
        download("echo filepath:/x");
        ADD_FAILURE();
    } catch (const std::system_error &error) {
        EXPECT_EQ(error.code(), std::errc::not_a_directory);
        EXPECT_TRUE(errorDescription(error).endsWith(u"Not a directory"));
    }
    EXPECT_EQ(m_tools.runCount(QStringLiteral("yt-dlp")), 0);
}

TEST(SanitizeFilename, givesASafeStem)
{
    const auto repeated = [](const char *text, int count) {
        return QString::fromUtf8(text).repeated(count);
    };
    struct Case {
        QString title;
        QString stem;
    };
    const Case cases[] = {
        {QStringLiteral("  ..my:clip?.mp4 "), QStringLiteral("my-clip-.mp4")},
        {QStringLiteral("/\\:?*\"<>|") + QChar(0), QStringLiteral("----------")},
        {QStringLiteral("100% real"), QStringLiteral("100%% real")},
        {QStringLiteral("..."), QStringLiteral("Untitled")},
        {QStringLiteral(" \n\t\u00A0"), QStringLiteral("Untitled")},
        {QString(), QStringLiteral("Untitled")},
        // Blanks go before points, and only once.
        {QStringLiteral(". a"), QStringLiteral(" a")},
        {QStringLiteral("a.b."), QStringLiteral("a.b.")},
        // A letter that only contains a forbidden one.
        {QStringLiteral("a?\u0301b"), QStringLiteral("a?\u0301b")},
        {QStringLiteral("%\u0301"), QStringLiteral("%%\u0301")},
        {repeated("a", 200), repeated("a", 180)},
        {repeated("%", 100), repeated("%", 180)},
        {repeated("👩‍👩‍👧", 181), repeated("👩‍👩‍👧", 180)},
        {repeated("e\u0301", 180), repeated("e\u0301", 180)},
    };
    for (const Case &c : cases)
        EXPECT_EQ(YtDlpService::sanitizeFilename(c.title), c.stem) << c.title.toStdString();
}

} // namespace
} // namespace clipwren
