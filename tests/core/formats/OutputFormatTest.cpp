#include "core/formats/OutputFormat.h"

#include <gtest/gtest.h>

namespace clipwren {
namespace {

TEST(OutputFormat, readsEveryStoredText)
{
    const std::pair<QStringView, OutputFormat> cases[] = {
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
    for (const auto &[stored, format] : cases)
        EXPECT_EQ(outputFormatFrom(stored), format) << stored.toString().toStdString();
}

} // namespace
} // namespace clipwren
