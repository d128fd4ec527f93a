#include "core/media/FfmpegService.h"

#include "core/json/JsonObjectReader.h"
#include "core/process/ProcessRunner.h"
#include "support/FakeTool.h"
#include "support/Printing.h"

#include <gtest/gtest.h>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

const QString file = u"/Clips/Talk [a] — x.mp4"_s;

class Ffprobe : public testing::Test {
protected:
    FfmpegService service(const char *body)
    {
        return {{}, m_tools.add(u"ffprobe"_s, QString::fromUtf8(body))};
    }
    QString arguments() const { return m_tools.arguments(u"ffprobe"_s).join(u'|'); }

    test::FakeTools m_tools;
};

TEST_F(Ffprobe, inspectReadsTheReport)
{
    const auto inspection =
        service(R"(echo '{"format": {"size": "12"}}'; echo noise >&2)").inspect(file);
    EXPECT_EQ(inspection, MediaInspection{.sizeBytes = 12});
    EXPECT_EQ(arguments(), u"-v|error|-print_format|json|-show_format|-show_streams|"_s + file);
}

TEST_F(Ffprobe, inspectFailsWithoutAReport)
{
    try {
        service("exit 0").inspect(file);
        ADD_FAILURE();
    } catch (const ClipwrenError &error) {
        EXPECT_EQ(error.code(), ClipwrenError::Code::EmptyProbeOutput);
        EXPECT_EQ(error.errorDescription(), u"empty ffprobe output");
    }
    EXPECT_THROW(service("echo").inspect(file), DecodingError);
    EXPECT_THROW(service("echo '{}'; exit 1").inspect(file), ProcessRunner::ProcessError);
}

TEST_F(Ffprobe, durationIsZeroWhereItCannotBeRead)
{
    const std::pair<const char *, double> cases[] = {
        {"echo 12.345000", 12.345},
        {"printf ' 7\\r\\n\\n'", 7},
        {"echo N/A", 0},
        {"", 0},
        {"echo 1,5", 0},
        {"echo inf", 0},
    };
    for (const auto &[body, seconds] : cases)
        EXPECT_EQ(service(body).duration(file), seconds) << body;
    EXPECT_EQ(arguments(),
              u"-v|error|-show_entries|format=duration|-of|default=noprint_wrappers=1:nokey=1|"_s
                  + file);
    EXPECT_THROW(service("echo 5; exit 1").duration(file), ProcessRunner::ProcessError);
}

TEST_F(Ffprobe, tellsThePictureFromTheWhole)
{
    using Lengths = FfmpegService::Lengths;
    const std::tuple<const char *, bool, std::optional<double>, std::optional<double>> cases[] = {
        {R"({"streams":[{"duration":"6.0"},{"duration":"7.5"}],"format":{"duration":"20.0"}})",
         true, 7.5, 20},
        {R"({"streams":[{"index":0}],"format":{"duration":"N/A"}})", true, {}, {}},
        {R"({"programs":[],"streams":[],"format":{"duration":"0.000000"}})", false, {}, 0},
        {"{}", false, {}, {}},
    };
    for (const auto &[report, hasPicture, picture, whole] : cases) {
        const Lengths found = service(("echo '" + std::string(report) + "'").c_str()).lengths(file);
        EXPECT_EQ(found.hasPicture, hasPicture) << report;
        EXPECT_EQ(found.picture, picture) << report;
        EXPECT_EQ(found.whole, whole) << report;
    }
    EXPECT_EQ(arguments(),
              u"-v|error|-select_streams|V|-show_entries|stream=index,duration:format=duration|"
              "-of|json|"_s
                  + file);
    EXPECT_THROW(service("echo").lengths(file), DecodingError);
}

} // namespace
} // namespace clipwren
