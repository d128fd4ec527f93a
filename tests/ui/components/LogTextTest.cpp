#include "ui/components/LogText.h"

#include <QClipboard>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QTest>

#include <gtest/gtest.h>

using namespace clipwren;

namespace {

constexpr qsizetype tenMegabytes = 10 * 1024 * 1024;
// A stall that a user would notice is some tenths of a second; loaded machines get more.
constexpr qint64 longestTurnMilliseconds = 1000;

QString repeated(const QString &text)
{
    return text.repeated(tenMegabytes / text.size());
}

} // namespace

TEST(LogTextTest, takesTenMegabytesWithoutStallingAndCopiesThemUnchanged)
{
    const QList<QString> logs = {
        repeated(QStringLiteral("[debug] Command-line config: ['-J', '--no-playlist']\n")),
        repeated(QStringLiteral("one endless line without any break ")),
        repeated(QStringLiteral("\u00E4\U0001F3AC")),
    };
    for (const QString &log : logs) {
        LogText text;
        text.resize(760, 400);
        text.show();
        QElapsedTimer turn;
        qint64 longest = 0;
        turn.start();
        text.setLog(log);
        text.grab();
        longest = turn.elapsed();
        EXPECT_FALSE(text.toPlainText().isEmpty());
        const qint64 first = longest;
        while (text.isFilling()) {
            turn.restart();
            QCoreApplication::processEvents();
            longest = std::max(longest, turn.elapsed());
        }
        const std::string kind = std::to_string(logs.indexOf(log));
        RecordProperty("firstMilliseconds" + kind, static_cast<int>(first));
        RecordProperty("longestMilliseconds" + kind, static_cast<int>(longest));
        EXPECT_LT(longest, longestTurnMilliseconds);
        text.selectAll();
        text.copy();
        EXPECT_TRUE(QGuiApplication::clipboard()->text() == log);
    }
}

TEST(LogTextTest, aNewLogReplacesOneThatIsStillComing)
{
    LogText text;
    text.setLog(repeated(QStringLiteral("old\n")));
    EXPECT_TRUE(text.isFilling());
    text.setLog(QStringLiteral("new"));
    EXPECT_FALSE(text.isFilling());
    QCoreApplication::processEvents();
    EXPECT_EQ(text.toPlainText(), QStringLiteral("new"));
}
