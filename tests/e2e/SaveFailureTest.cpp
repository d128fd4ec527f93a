#include "e2e/ProgramTest.h"

#include <gmock/gmock.h>

namespace clipwren::test {
namespace {

using namespace Qt::StringLiterals;
using testing::HasSubstr;
using testing::IsEmpty;

QString lastLine(const QString &text)
{
    return text.trimmed().section(u'\n', -1);
}

TEST_F(SaveTest, tellsInOneSentenceWhyAVideoCannotBeSaved)
{
    const struct {
        QString page;
        QStringList options;
        const char *sentence;
    } cases[] = {
        {u"nowhere"_s, {}, "HTTP Error 404"},
        {u"private"_s, {}, "This video is private or members-only."},
        {u"hls"_s, {u"--trim"_s, u"20-30"_s}, "The video ends before the time range starts."},
    };
    for (const auto &expected : cases) {
        SCOPED_TRACE(expected.page.toStdString());
        const Outcome outcome = save(expected.page, expected.options);
        EXPECT_EQ(outcome.exitStatus, 1);
        EXPECT_EQ(outcome.standardOutput, QString());
        EXPECT_THAT(lastLine(outcome.standardError).toStdString(), HasSubstr(expected.sentence))
            << outcome.standardError.toStdString();
        EXPECT_THAT(m_home.savedFiles(), IsEmpty());
    }
}

TEST_F(ProgramTest, refusesToTrimSoundAlone)
{
    const Outcome outcome = run({u"save"_s, u"--trim"_s, u"1-2"_s, u"--format"_s, u"audioMP3"_s,
                                 u"http://127.0.0.1/watch?v=tide-clock-01"_s});
    EXPECT_EQ(outcome.exitStatus, 2);
    EXPECT_EQ(outcome.standardOutput, QString());
    EXPECT_THAT(outcome.standardError.toStdString(), HasSubstr("Audio is saved whole"));
}

TEST_F(ProgramTest, answersWrongUseWithTheUsage)
{
    const QString address = u"http://127.0.0.1/watch?v=tide-clock-01"_s;
    const QStringList cases[] = {
        {u"keep"_s, address},
        {u"save"_s},
        {u"save"_s, u""_s},
        {u"save"_s, address, address},
        {u"save"_s, u"--format"_s, u"mp4"_s, address},
        {u"save"_s, u"--format"_s, u"audiomp3"_s, address},
        {u"save"_s, u"--format"_s},
        {u"save"_s, u"--trim"_s, u"5-5"_s, address},
        {u"save"_s, u"--trim"_s, u"7-3.5"_s, address},
        {u"save"_s, u"--trim"_s, u"5"_s, address},
        {u"save"_s, u"--trim"_s, u"one-two"_s, address},
        {u"save"_s, u"--volume"_s, u"11"_s, address},
    };
    for (const QStringList &arguments : cases) {
        SCOPED_TRACE(arguments.join(u' ').toStdString());
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.exitStatus, 2);
        EXPECT_EQ(outcome.standardOutput, QString());
        EXPECT_THAT(outcome.standardError.toStdString(), HasSubstr("Usage: clipwren"));
    }
}

TEST_F(ProgramTest, describesItselfWithoutAScreen)
{
    const Outcome help = run({u"--help"_s});
    EXPECT_EQ(help.exitStatus, 0);
    EXPECT_THAT(help.standardOutput.toStdString(), HasSubstr("clipwren save"));

    const Outcome version = run({u"--version"_s});
    EXPECT_EQ(version.exitStatus, 0);
    EXPECT_THAT(version.standardOutput.toStdString(), HasSubstr(CLIPWREN_VERSION));
}

} // namespace
} // namespace clipwren::test
