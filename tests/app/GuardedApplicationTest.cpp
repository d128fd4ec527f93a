#include "app/GuardedApplication.h"

#include "core/Error.h"

#include <QCoreApplication>
#include <QTimer>

#include <gmock/gmock.h>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

TEST(GuardedApplication, anExceptionEndsTheEventLoopWithASentence)
{
    testing::internal::CaptureStderr();
    QTimer::singleShot(0, [] {
        try {
            throw Error(u"No room"_s);
        } catch (...) {
            EXPECT_FALSE(endAfterException());
        }
    });
    EXPECT_EQ(QCoreApplication::exec(), 1);
    EXPECT_THAT(testing::internal::GetCapturedStderr(), testing::HasSubstr("failed: No room"));
}

} // namespace
} // namespace clipwren
