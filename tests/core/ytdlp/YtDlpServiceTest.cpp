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

using namespace Qt::StringLiterals;
using FetchError = YtDlpService::FetchError;
using testing::ElementsAre;

const QString address = u"https://v.example/watch?v=1&t=2 3"_s;

class YtDlp : public testing::Test {
protected:
    YtDlpService service(const char *body)
    {
        return {.binaryPath = m_tools.add(u"yt-dlp"_s, QString::fromUtf8(body)),
                .ffmpegPath = u"/opt/my tools/ffmpeg"_s};
    }
    /// Of the latest run, parted by bars.
    QString arguments() const { return m_tools.arguments(u"yt-dlp"_s).join(u'|'); }
    QString folder() const { return m_tools.path(u"a/b"_s); }

    QString download(const char *body)
    {
        return service(body).download(address, folder(), OutputFormat::proRes422, {}, {});
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
    EXPECT_EQ(arguments(),
              u"-J|-v|--no-warnings|--no-playlist|--socket-timeout|20|--retries|2|--|"_s + address);
}

TEST_F(YtDlp, fetchInfoSaysWhyThereIsNoMetadata)
{
    const std::pair<const char *, FetchError::Kind> cases[] = {
        {"echo log >&2", FetchError::Kind::emptyResponse},
        {"echo log >&2; echo", FetchError::Kind::malformedJSON},
        {"echo log >&2; echo WARNING; echo '{}'", FetchError::Kind::malformedJSON},
        {R"(echo log >&2; echo '{"formats": [{"height": "1"}]}')", FetchError::Kind::malformedJSON},
    };
    for (const auto &[body, kind] : cases) {
        try {
            service(body).fetchInfo(address, {});
            ADD_FAILURE() << body;
        } catch (const FetchError &error) {
            EXPECT_EQ(error.kind(), kind) << body;
            EXPECT_EQ(error.log(), u"log\n");
            EXPECT_EQ(error.underlying().has_value(), kind == FetchError::Kind::malformedJSON);
        }
    }
    EXPECT_THROW(service("echo '{}'; exit 1").fetchInfo(address, {}), ProcessRunner::ProcessError);
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
    const std::pair<const char *, const char *> cases[] = {
        {"echo https://a.example/x?y=%20; echo https://b.example/", "https://a.example/x?y=%20"},
        {R"(printf '\r\n\n https://a.example/1 \rhttps://b.example/')", "https://a.example/1"},
        {"", ""},
        {"echo; echo", ""},
        {"echo '  '; echo https://b.example/", ""},
        {"echo 'not an address'; echo https://b.example/", ""},
    };
    for (const auto &[body, found] : cases) {
        const auto url = service(body).fetchPreviewURL(address);
        EXPECT_EQ(url.value_or(QUrl()).toEncoded(), found) << body;
        EXPECT_EQ(url.has_value(), *found != 0) << body;
    }
    EXPECT_EQ(arguments(),
              u"-g|-f|best[ext=mp4][protocol^=http][acodec!=none][vcodec!=none]/"
              "best[height<=720][ext=mp4][acodec!=none]/18|"
              "--no-warnings|--no-playlist|--socket-timeout|15|--|"_s
                  + address);
}

TEST_F(YtDlp, downloadAsksForEachFormatInItsWay)
{
    const QString mp4 = u"--merge-output-format|mp4"_s;
    const QString aac = mp4 + u"|--postprocessor-args|ffmpeg:-c:a aac -b:a 192k"_s;
    const std::tuple<OutputFormat, QString, QString> cases[] = {
        {OutputFormat::bestResolution, u"bv*+ba[ext=m4a]/bv*+ba/b"_s, aac},
        {OutputFormat::macCompatible,
         u"bv*[vcodec^=avc1]+ba[ext=m4a]/b[ext=mp4]/bv*[vcodec^=avc1]+ba/b[vcodec^=avc1]"_s, aac},
        {OutputFormat::proRes422, u"bv*+ba/b"_s, mp4},
        {OutputFormat::audioMP3, u"ba/b"_s,
         u"--extract-audio|--audio-format|mp3|--audio-quality|0"_s},
    };
    const YtDlpService yt = service("echo filepath:/x");
    for (const auto &[format, selector, rest] : cases) {
        yt.download(address, folder(), format, u"50% of a/b"_s, {});
        EXPECT_EQ(arguments(),
                  u"--no-playlist|--no-warnings|--newline|--progress|--progress-template|"
                  "download:%(progress._percent_str)s||%(progress._speed_str)s||"
                  "%(progress._eta_str)s|--socket-timeout|30|--retries|3|"
                  "--ffmpeg-location|/opt/my tools/ffmpeg|-o|"_s
                      + folder()
                      + u"/50%% of a-b [%(id)s].%(ext)s|--print|"
                        "after_move:filepath:%(filepath)s|-f|"_s
                      + selector + u'|' + rest + u"|--|"_s + address);
    }
}

TEST_F(YtDlp, downloadNamesTheFileAfterTheTitle)
{
    qputenv("CLIPWREN_TEST_VARIABLE", "/elsewhere");
    const QString odd = m_tools.path(u"100%%(id)s"_s);
    const std::pair<std::optional<QString>, QString> cases[] = {
        {std::nullopt, u"%(title).200B [%(id)s].%(ext)s"_s},
        {QString(), u"%(title).200B [%(id)s].%(ext)s"_s},
        {u"..."_s, u"Untitled [%(id)s].%(ext)s"_s},
        // 100 characters of 3 bytes, too many for a file's name.
        {u"漢"_s.repeated(100), u"漢"_s.repeated(66) + u" [%(id)s].%(ext)s"_s},
        // The tool would put the variable's value there.
        {u"$CLIPWREN_TEST_VARIABLE, ${CLIPWREN_TEST_VARIABLE} or $5"_s,
         u"$%(none|)sCLIPWREN_TEST_VARIABLE, $%(none|)s{CLIPWREN_TEST_VARIABLE} or $5"
         " [%(id)s].%(ext)s"_s},
    };
    const YtDlpService yt = service("echo filepath:/x");
    for (const auto &[title, outputTemplate] : cases) {
        yt.download(address, odd, OutputFormat::audioMP3, title, {});
        EXPECT_EQ(m_tools.arguments(u"yt-dlp"_s)[13],
                  m_tools.path(u"100%%%%(id)s/"_s) + outputTemplate);
    }
    EXPECT_TRUE(QDir(odd).exists());
}

TEST_F(YtDlp, downloadReturnsTheLastPathExactlyAsPrinted)
{
    EXPECT_EQ(download("echo filepath:/first; echo 'filepath: /Clips/Clip: [abc] .mp4 '"),
              u" /Clips/Clip: [abc] .mp4 ");
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

TEST(SanitizeFilename, givesASafeStem)
{
    const std::pair<QString, QString> cases[] = {
        {u"  ..my:clip?.mp4 "_s, u"my-clip-.mp4"_s},
        {u"/\\:?*\"<>|"_s + QChar(0), u"----------"_s},
        {u"100% real"_s, u"100%% real"_s},
        {u"..."_s, u"Untitled"_s},
        {u" \n\t\u00A0"_s, u"Untitled"_s},
        {QString(), u"Untitled"_s},
        // Blanks go before points, and only once.
        {u". a"_s, u" a"_s},
        {u"a.b."_s, u"a.b."_s},
        // A letter that only contains a forbidden one.
        {u"a?\u0301b"_s, u"a?\u0301b"_s},
        {u"%\u0301"_s, u"%%\u0301"_s},
        {u"a"_s.repeated(200), u"a"_s.repeated(180)},
        {u"%"_s.repeated(100), u"%"_s.repeated(180)},
        {u"👩‍👩‍👧"_s.repeated(181), u"👩‍👩‍👧"_s.repeated(180)},
        {u"e\u0301"_s.repeated(180), u"e\u0301"_s.repeated(180)},
    };
    for (const auto &[title, stem] : cases)
        EXPECT_EQ(YtDlpService::sanitizeFilename(title), stem) << title.toStdString();
}

} // namespace
} // namespace clipwren
