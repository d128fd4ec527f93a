#include "support/LeakCheck.h"

#include <QApplication>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QThreadPool>

#include <gmock/gmock.h>

namespace {

/// Ends what still runs in the background before the leak check looks.
class BackgroundEnds : public testing::EmptyTestEventListener {
    void OnTestEnd(const testing::TestInfo &) override
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(QThreadPool::globalInstance()->waitForDone(20'000));
        // Without a turn of the event loop, Qt keeps what the pool posted.
        QCoreApplication::processEvents();
    }
};

} // namespace

/// For tests of widgets. They need a display, which Xvfb gives them; listing the tests does not.
int main(int argc, char *argv[])
{
    testing::InitGoogleMock(&argc, argv);
    if (testing::GTEST_FLAG(list_tests))
        return RUN_ALL_TESTS();

    const QTemporaryDir home;
    for (const char *variable : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
        qputenv(variable, home.path().toUtf8());
    QStandardPaths::setTestModeEnabled(true);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    auto &listeners = testing::UnitTest::GetInstance()->listeners();
    listeners.Append(new clipwren::test::LeakCheck);
    // Listeners hear of a test's end in reverse order.
    listeners.Append(new BackgroundEnds);
    return RUN_ALL_TESTS();
}
