#include "e2e/MediaFacts.h"
#include "e2e/ProgramTest.h"

#include <gmock/gmock.h>

namespace clipwren::test {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

struct SavedCase {
    const char *name;
    QString page;
    QStringList options;
    QString fileName;
    MediaFacts facts;

    friend void PrintTo(const SavedCase &tested, std::ostream *out) { *out << tested.name; }
};

class SaveFormatTest : public SaveTest, public testing::WithParamInterface<SavedCase> { };

TEST_P(SaveFormatTest, savesTheFileAndPrintsItsPathOnly)
{
    const SavedCase &expected = GetParam();

    const Outcome outcome = save(expected.page, expected.options);

    ASSERT_EQ(outcome.exitStatus, 0) << outcome.standardError.toStdString();
    const QString path = m_home.downloadsFolder() + u'/' + expected.fileName;
    EXPECT_EQ(outcome.standardOutput, path + u'\n');
    EXPECT_THAT(m_home.savedFiles(), ElementsAre(expected.fileName));
    const MediaFacts facts = MediaFacts::of(path);
    EXPECT_EQ(facts.container, expected.facts.container);
    EXPECT_EQ(facts.videoCodec, expected.facts.videoCodec);
    EXPECT_EQ(facts.audioCodec, expected.facts.audioCodec);
    EXPECT_EQ(facts.height, expected.facts.height);
    EXPECT_NEAR(facts.durationSeconds, expected.facts.durationSeconds, 0.1);
}

const SavedCase savedCases[] = {
    {.name = "bestResolution",
     .page = u"tide-clock-01"_s,
     .options = {u"--format"_s, u"bestResolution"_s},
     .fileName = u"Building a tide clock from scratch [tide-clock-01-1].mp4"_s,
     .facts = {u"mov"_s, u"vp9"_s, u"aac"_s, 1080, 12}},
    {.name = "macCompatible",
     .page = u"tide-clock-01"_s,
     .options = {u"--format=macCompatible"_s},
     .fileName = u"Building a tide clock from scratch [tide-clock-01-1].mp4"_s,
     .facts = {u"mov"_s, u"h264"_s, u"aac"_s, 480, 12}},
    {.name = "proRes422",
     .page = u"hls"_s,
     .options = {u"--format"_s, u"proRes422"_s},
     .fileName = u"Mending a net in one afternoon [hls-1].mov"_s,
     .facts = {u"mov"_s, u"prores"_s, u"pcm_s16le"_s, 360, 12}},
    {.name = "audioMP3",
     .page = u"rtl"_s,
     .options = {u"--format"_s, u"audioMP3"_s},
     .fileName = u"بناء ساعة المدّ والجزر من الصفر (الحلقة 3) [rtl-1].mp3"_s,
     .facts = {u"mp3"_s, {}, u"mp3"_s, 0, 12}},
    {.name = "trimmed",
     .page = u"tide-clock-01"_s,
     .options = {u"--trim"_s, u"3-7.48"_s, u"--format"_s, u"macCompatible"_s},
     .fileName = u"Building a tide clock from scratch [tide-clock-01-1] — trimmed.mp4"_s,
     .facts = {u"mov"_s, u"h264"_s, u"aac"_s, 480, 4.48}},
    {.name = "trimmedProRes",
     .page = u"hls"_s,
     .options = {u"--trim"_s, u"0:10-0:11.5"_s, u"--format"_s, u"proRes422"_s},
     .fileName = u"Mending a net in one afternoon [hls-1] — trimmed.mov"_s,
     .facts = {u"mov"_s, u"prores"_s, u"pcm_s16le"_s, 360, 1.5}},
    {.name = "ownTitle",
     .page = u"hls"_s,
     .options = {u"--title"_s, u"A/B: \"100%\" real?"_s},
     .fileName = u"A-B- -100%- real- [hls-1].mp4"_s,
     .facts = {u"mov"_s, u"h264"_s, u"aac"_s, 360, 12}},
};

INSTANTIATE_TEST_SUITE_P(, SaveFormatTest, testing::ValuesIn(savedCases),
                         [](const auto &tested) { return std::string(tested.param.name); });

TEST_F(SaveTest, cutsAtTheVeryFrameAndKeepsTheFileOfAnEarlierSave)
{
    const QStringList format{u"--format"_s, u"macCompatible"_s};
    const Outcome whole = save(u"tide-clock-01"_s, format);
    ASSERT_EQ(whole.exitStatus, 0) << whole.standardError.toStdString();

    const Outcome cut = save(u"tide-clock-01"_s, format + QStringList{u"--trim"_s, u"3-4"_s});

    ASSERT_EQ(cut.exitStatus, 0) << cut.standardError.toStdString();
    const QString wholeFile = whole.standardOutput.trimmed();
    const QString cutFile = cut.standardOutput.trimmed();
    EXPECT_THAT(
        m_home.savedFiles(),
        UnorderedElementsAre(QFileInfo(wholeFile).fileName(), QFileInfo(cutFile).fileName()));
    // 25 frames a second, so the cut begins with frame 75; its neighbours show other numbers.
    const double same = frameLikeness(cutFile, 0, wholeFile, 75);
    EXPECT_GT(same, frameLikeness(cutFile, 0, wholeFile, 74));
    EXPECT_GT(same, frameLikeness(cutFile, 0, wholeFile, 76));
}

} // namespace
} // namespace clipwren::test
