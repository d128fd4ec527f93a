#include "ui/shell/LibraryListView.h"
#include "ui/shell/RecentList.h"
#include "ui/shell/ShellFixture.h"
#include "ui/shell/SidebarView.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QScrollBar>

namespace clipwren::test {
namespace {

constexpr int recordCount = 100'000;

class LongListTest : public ShellFixture {
protected:
    LongListTest()
    {
        QJsonArray records;
        DownloadRecord record = bareRecord(QStringLiteral("A title of a usual length for a talk"));
        for (int index = 0; index < recordCount; ++index) {
            record.id = QUuid::createUuid();
            record.createdAt = record.createdAt.addSecs(-3600);
            records << record.toJson();
        }
        writeFile(QStringLiteral("downloads.json"), QJsonDocument(records).toJson());
    }
};

double milliseconds(const QElapsedTimer &timer)
{
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

TEST_F(LongListTest, opensScrollsAndChangesWithoutARowBeingAWidget)
{
    DownloadStore longStore(folder());
    ASSERT_EQ(longStore.records().size(), recordCount);

    QElapsedTimer timer;
    timer.start();
    SidebarView sidebar(longStore, history, environment, desktop);
    sidebar.resize(280, 848);
    sidebar.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&sidebar));
    sidebar.grab();
    const double shown = milliseconds(timer);
    EXPECT_LT(sidebar.findChildren<QWidget *>().size(), 60);

    LibraryListView &list = sidebar.recentList().view();
    QScrollBar &bar = *list.verticalScrollBar();
    constexpr int pages = 100;
    timer.restart();
    for (int page = 0; page < pages; ++page) {
        bar.setValue(bar.value() + bar.pageStep());
        list.viewport()->repaint();
    }
    const double scrolled = milliseconds(timer) / pages;
    EXPECT_GT(list.indexAt({20, 20}).row(), 1500);

    // A download that ends leaves the reader where he is, relative to the rows.
    sidebar.setSelection(longStore.records().at(50'000).id);
    const QModelIndex selected = list.selectionModel()->currentIndex();
    EXPECT_TRUE(list.viewport()->rect().contains(list.visualRect(selected)));
    const int before = bar.value();
    timer.restart();
    Q_EMIT longStore.changed();
    QCoreApplication::processEvents();
    const double changed = milliseconds(timer);
    EXPECT_EQ(bar.value(), before);
    EXPECT_EQ(list.selectionModel()->currentIndex(), selected);

    std::printf("100,000 rows: shown in %.1f ms, a page scrolled in %.2f ms, a change taken in "
                "%.1f ms\n",
                shown, scrolled, changed);
}

} // namespace
} // namespace clipwren::test
