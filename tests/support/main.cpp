#include "support/LeakCheck.h"

#include <QCoreApplication>
#include <QStandardPaths>

#include <gmock/gmock.h>

int main(int argc, char *argv[])
{
    testing::InitGoogleMock(&argc, argv);
    QCoreApplication application(argc, argv);
    // Opens what Qt keeps open for good, so that the first test does not seem to leak it.
    QMetaObject::invokeMethod(
        &application, [] {}, Qt::QueuedConnection);
    QCoreApplication::processEvents();
    testing::UnitTest::GetInstance()->listeners().Append(new clipwren::test::LeakCheck);
    return RUN_ALL_TESTS();
}
