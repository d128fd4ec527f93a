#include "workflow/download/FetchErrorText.h"

#include "core/process/ProcessRunner.h"

#include <gtest/gtest.h>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;
using ProcessRunner::ProcessError;

TEST(FetchErrorText, ChoosesTheFirstSentenceThatFits)
{
    struct Case {
        const char16_t *standardError;
        const char16_t *sentence;
    };
    const Case cases[] = {
        {u"Sign in to confirm you're not a bot",
         u"YouTube wants browser cookies for this video. Try another video, or sign in via Safari "
         "first."},
        {u"Private video in this region", u"This video is private or members-only."},
        {u"members-only content", u"This video is private or members-only."},
        {u"Video unavailable", u"Video unavailable (may be region-locked or removed)."},
        {u"private VIDEO", u"Couldn't fetch video info: Process failed (exit 1): private VIDEO"},
    };
    for (const Case &c : cases) {
        EXPECT_EQ(friendlyFetchError(ProcessError(1, QString::fromUtf16(c.standardError))),
                  QString::fromUtf16(c.sentence));
    }
    EXPECT_EQ(
        friendlyFetchError(ProcessRunner::TimeoutError()),
        u"Timed out after 60 s. YouTube may be rate-limiting — wait a minute and try again."_s);
}

TEST(FetchErrorText, KeepsOnlyTheDecisiveLineOfALog)
{
    const QString head = u"Couldn't fetch video info: Process failed (exit 1): "_s;
    EXPECT_EQ(withoutLog(head + u"[debug] a\nERROR: gone\n  File \"x\", line 1"_s),
              head + u"ERROR: gone"_s);
    EXPECT_EQ(withoutLog(head + u"one\ntwo"_s), head + u"two"_s);
    EXPECT_EQ(withoutLog(u"Cancelled"_s), u"Cancelled"_s);
}

} // namespace
} // namespace clipwren
