#include "workflow/download/FetchErrorText.h"

#include "core/process/ProcessRunner.h"

#include <gtest/gtest.h>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;
using ProcessRunner::ProcessError;

TEST(FetchErrorText, choosesTheFirstSentenceThatFits)
{
    const std::pair<QString, QString> cases[] = {
        {u"Sign in to confirm you're not a bot"_s,
         u"YouTube wants browser cookies for this video. Try another video, or sign in via Safari "
         "first."_s},
        {u"Private video in this region"_s, u"This video is private or members-only."_s},
        {u"members-only content"_s, u"This video is private or members-only."_s},
        {u"Video unavailable"_s, u"Video unavailable (may be region-locked or removed)."_s},
        {u"private VIDEO"_s,
         u"Couldn't fetch video info: Process failed (exit 1): private VIDEO"_s},
        {u"[debug] a\nERROR: gone\n  File \"x\", line 1"_s,
         u"Couldn't fetch video info: Process failed (exit 1): ERROR: gone"_s},
    };
    for (const auto &[standardError, sentence] : cases)
        EXPECT_EQ(friendlyFetchError(ProcessError(1, standardError, u"yt-dlp"_s)), sentence);
    EXPECT_EQ(
        friendlyFetchError(ProcessRunner::TimeoutError()),
        u"Timed out after 60 s. YouTube may be rate-limiting — wait a minute and try again."_s);
}

} // namespace
} // namespace clipwren
