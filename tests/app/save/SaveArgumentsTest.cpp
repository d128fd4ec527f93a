#include "app/save/SaveArguments.h"

#include <gmock/gmock.h>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

TEST(SaveArguments, readsOptionsInAnyPlace)
{
    const SaveArguments arguments =
        SaveArguments::parse({u"--format"_s, u"audioMP3"_s, u"https://a/"_s, u"--trim=1:00-90"_s,
                              u"--title"_s, u"-x-"_s});
    EXPECT_EQ(arguments.address, u"https://a/"_s);
    EXPECT_EQ(arguments.format, OutputFormat::audioMP3);
    EXPECT_EQ(arguments.trim, (TrimRange{60, 90}));
    EXPECT_EQ(arguments.title, u"-x-"_s);
    EXPECT_EQ(SaveArguments::parse({u"--"_s, u"--odd"_s}).address, u"--odd"_s);
}

TEST(SaveArguments, saysWhatIsWrong)
{
    const std::pair<QStringList, const char *> cases[] = {
        {{}, "address is missing"},
        {{u"a"_s, u"b"_s}, "One address"},
        {{u""_s}, "address is empty"},
        {{u" \n"_s}, "address is empty"},
        {{u"a"_s, u"--format"_s, u"AudioMP3"_s}, "“AudioMP3” is no format"},
        {{u"a"_s, u"--trim"_s, u"5"_s}, "“5” is no time range"},
        {{u"a"_s, u"--trim"_s, u"5-x"_s}, "no time range"},
        {{u"a"_s, u"--trim"_s, u"5-5"_s}, "ends before it starts"},
        {{u"a"_s, u"--trim"_s, u"1-1.04"_s}, "too short"},
        {{u"a"_s, u"--quality"_s}, "quality"},
        {{u"a"_s, u"--title"_s}, "title"},
    };
    for (const auto &[arguments, part] : cases) {
        try {
            SaveArguments::parse(arguments);
            ADD_FAILURE() << part;
        } catch (const UsageError &error) {
            EXPECT_THAT(error.errorDescription().toStdString(), testing::HasSubstr(part));
        }
    }
}

} // namespace
} // namespace clipwren
