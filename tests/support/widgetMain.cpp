#include "support/LeakCheck.h"
#include "ui/components/Theme.h"

#include <QAccessible>
#include <QApplication>
#include <QDBusConnection>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QThreadPool>

#include <gmock/gmock.h>
#include <memory>

namespace {

using namespace Qt::StringLiterals;

/// Opens what Qt keeps open from its first use of windows, buses and the network, so that no test
/// seems to leak it.
void openWhatQtKeeps()
{
    QWidget window;
    window.show();
    window.activateWindow();
    std::ignore = QTest::qWaitForWindowActive(&window);

    const auto bus = u"first"_s;
    QDBusConnection::connectToBus(u"unix:path=/nonexistent"_s, bus);
    QDBusConnection::disconnectFromBus(bus);
    // Assistive tools are reached over the session's bus, which is kept.
    QDBusConnection::sessionBus();
    QAccessible::queryAccessibleInterface(&window);
    QCoreApplication::processEvents();

    QNetworkAccessManager network;
    const std::unique_ptr<QNetworkReply> reply(
        network.get(QNetworkRequest(QUrl(u"http://nobody.invalid/"_s))));
    QSignalSpy(reply.get(), &QNetworkReply::finished).wait();
}

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
    clipwren::Theme theme;
    // Nobody waits for animations, except who tests them.
    theme.forceReducedMotion(true);
    openWhatQtKeeps();
    auto &listeners = testing::UnitTest::GetInstance()->listeners();
    listeners.Append(new clipwren::test::LeakCheck);
    // Listeners hear of a test's end in reverse order.
    listeners.Append(new BackgroundEnds);
    return RUN_ALL_TESTS();
}
