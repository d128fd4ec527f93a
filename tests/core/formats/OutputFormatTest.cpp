#include "core/formats/OutputFormat.h"

#include <gtest/gtest.h>

namespace clipwren {
namespace {

TEST(OutputFormat, readsEveryStoredText)
{
    struct Case {
        QStringView stored;
        OutputFormat format;
    };
    const Case cases[] = {
        {u"bestResolution", OutputFormat::bestResolution},
        {u"macCompatible", OutputFormat::macCompatible},
        {u"proRes422", OutputFormat::proRes422},
        {u"audioMP3", OutputFormat::audioMP3},
        {u"maxQuality", OutputFormat::macCompatible},
        {u"h264Mp4", OutputFormat::macCompatible},
        {u"bestQuality", OutputFormat::bestResolution},
        {u"AudioMP3", OutputFormat::bestResolution},
        {u" audioMP3", OutputFormat::bestResolution},
        {u"", OutputFormat::bestResolution},
    };
    for (const Case &c : cases)
        EXPECT_EQ(outputFormatFrom(c.stored), c.format) << c.stored.toString().toStdString();
}

TEST(OutputFormat, takesOnlyItsOwnNamesAsRawValues)
{
    for (const OutputFormat format : allOutputFormats)
        EXPECT_EQ(outputFormatWithRawValue(rawValue(format)), format);
    EXPECT_EQ(outputFormatWithRawValue(u"maxQuality"), std::nullopt);
}

} // namespace
} // namespace clipwren
