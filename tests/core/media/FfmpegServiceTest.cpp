#include "core/media/FfmpegService.h"

#include "core/json/JsonObjectReader.h"
#include "core/process/ProcessRunner.h"
#include "support/FakeTool.h"

#include <gmock/gmock.h>

namespace clipwren {
namespace {

using testing::ElementsAre;

const QString file = QStringLiteral("/Clips/Talk [a] — x.mp4");

class Ffprobe : public testing::Test {
protected:
    FfmpegService service(const char *body)
    {
        return {{}, m_tools.add(QStringLiteral("ffprobe"), QString::fromUtf8(body))};
    }
    QStringList arguments() const { return m_tools.arguments(QStringLiteral("ffprobe")); }

    test::FakeTools m_tools;
};

TEST_F(Ffprobe, inspectReadsTheReport)
{
    const auto inspection =
        service(R"(echo '{"format": {"size": "12"}}'; echo noise >&2)").inspect(file);
    EXPECT_EQ(inspection, MediaInspection{.sizeBytes = 12});
    EXPECT_THAT(arguments(),
                ElementsAre(u"-v", u"error", u"-print_format", u"json", u"-show_format",
                            u"-show_streams", file));
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
    EXPECT_THAT(arguments(),
                ElementsAre(u"-v", u"error", u"-show_entries", u"format=duration", u"-of",
                            u"default=noprint_wrappers=1:nokey=1", file));
    EXPECT_THROW(service("echo 5; exit 1").duration(file), ProcessRunner::ProcessError);
}

} // namespace
} // namespace clipwren
