#include "ui/components/LogText.h"

#include <QClipboard>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>

#include <gtest/gtest.h>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

constexpr qsizetype tenMegabytes = 10 * 1024 * 1024;
// A stall that a user would notice is some tenths of a second; loaded machines get more.
constexpr qint64 longestTurnMilliseconds = 1000;

TEST(LogTextTest, takesTenMegabytesWithoutStallingAndCopiesThemUnchanged)
{
    const QString end = u"\u220E"_s;
    for (const QString &line : {u"[debug] Command-line config: ['-J', '--no-playlist']\n"_s,
                                u"one endless line without any break "_s, u"\u00E4\U0001F3AC"_s}) {
        SCOPED_TRACE(line.toStdString());
        const QString log = line.repeated(tenMegabytes / line.size()) + end;
        LogText text;
        text.resize(760, 400);
        text.show();
        QElapsedTimer turn;
        turn.start();
        text.setLog(log);
        text.grab();
        qint64 longest = turn.elapsed();
        EXPECT_FALSE(text.toPlainText().isEmpty());
        const auto isWhole = [&] { return text.document()->lastBlock().text().endsWith(end); };
        for (int turns = 0; turns < 10'000 && !isWhole(); ++turns) {
            turn.restart();
            QCoreApplication::processEvents();
            longest = std::max(longest, turn.elapsed());
        }
        EXPECT_LT(longest, longestTurnMilliseconds);
        EXPECT_EQ(text.verticalScrollBar()->value(), 0) << "the reader stays where he reads";
        const auto &blocks = *text.document();
        for (QTextBlock block = blocks.begin(); block != blocks.end(); block = block.next())
            ASSERT_FALSE(block.text().startsWith(u'\xDFAC')) << "the second half of a letter";
        text.selectAll();
        text.copy();
        EXPECT_TRUE(QGuiApplication::clipboard()->text() == log);
    }
}

} // namespace
} // namespace clipwren
