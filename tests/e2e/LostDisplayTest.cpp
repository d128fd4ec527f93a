#include "e2e/ProgramTest.h"
#include "support/SampleSite.h"

#include <QTest>

namespace clipwren::test {
namespace {

using namespace Qt::StringLiterals;

class LostDisplayTest : public ProgramTest {
protected:
    LostDisplayTest()
    {
        // It prints the number that was free.
        m_server.start(u"Xvfb"_s, {u"-displayfd"_s, u"1"_s});
        EXPECT_TRUE(m_server.waitForReadyRead(20'000));
        setDisplay(u':' + QString::fromLatin1(m_server.readAllStandardOutput().trimmed()));
    }
    ~LostDisplayTest() override { endServer(); }

    void endServer()
    {
        m_server.terminate();
        m_server.waitForFinished(10'000);
    }

    SampleSite m_site;

private:
    QProcess m_server;
};

TEST_F(LostDisplayTest, StopsTheToolAndEndsWithTheScreen)
{
    // A page that never answers, with a mark for every tool that is run for it.
    const QString address = m_site.address(u"/watch?v=silent&from="_s + home());
    QElapsedTimer timer;
    const Outcome outcome = run({address}, [&](const QProcess &) {
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return !processes().filter(u" -J "_s).isEmpty(); }, 60'000));
        timer.start();
        endServer();
    });
    EXPECT_EQ(outcome.exitStatus, 1) << outcome.standardError.toStdString();
    // The tool itself would wait for 20 s.
    EXPECT_LT(timer.elapsed(), 10'000);
}

} // namespace
} // namespace clipwren::test
