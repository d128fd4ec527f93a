#include "ui/shell/HistoryList.h"

#include "ui/components/SegmentedControl.h"
#include "ui/shell/LibraryListView.h"
#include "ui/shell/ShellFixture.h"
#include "ui/shell/SidebarView.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QSignalSpy>

namespace clipwren::test {
namespace {

const QString address = QStringLiteral("https://example.org/watch?a=1");

class HistoryListTest : public ShellFixture {
protected:
    HistoryListTest()
    {
        sidebar.setTab(SidebarView::Tab::history);
        sidebar.resize(280, 600);
        QObject::connect(&sidebar, &SidebarView::redownloadRequested,
                         [this](const QString &wanted) { addresses << wanted; });
    }

    void addEntry(const QString &url = address, const QString &title = QStringLiteral("Talk"))
    {
        history.recordDownload(url, title, {}, {});
    }
    LibraryListView &list() { return sidebar.historyList().view(); }
    QModelIndex row(int item) { return list().model()->index(item + 1, 0); }
    QPoint arrow(int item)
    {
        const QRect place = list().visualRect(row(item));
        return {place.right() - 24, place.center().y()};
    }
    void openMenuOf(int item)
    {
        const QPoint place = list().visualRect(row(item)).center();
        QContextMenuEvent event(QContextMenuEvent::Mouse, place,
                                list().viewport()->mapToGlobal(place));
        QApplication::sendEvent(list().viewport(), &event);
    }

    QStringList addresses;
    SidebarView sidebar{store, history, environment, desktop};
};

TEST_F(HistoryListTest, saysSoWhenEmpty)
{
    EXPECT_TRUE(shows(sidebar, QStringLiteral("Nothing downloaded yet")));
    EXPECT_EQ(buttonIn(sidebar, QStringLiteral("Clear History")), nullptr);
}

TEST_F(HistoryListTest, clearsAtOnce)
{
    addEntry();
    addRecord(QStringLiteral("Talk"));
    buttonIn(sidebar, QStringLiteral("Clear History"))->click();
    EXPECT_TRUE(history.entries().isEmpty());
    EXPECT_EQ(store.records().size(), 1);
    EXPECT_TRUE(shows(sidebar, QStringLiteral("Nothing downloaded yet")));
}

TEST_F(HistoryListTest, newDownloadLeadsBackToTheRecentTab)
{
    const DownloadRecord record = addRecord(QStringLiteral("Talk"));
    sidebar.setSelection(record.id);
    const QSignalSpy selections(&sidebar, &SidebarView::selectionChanged);
    const QSignalSpy tabs(&sidebar, &SidebarView::tabChanged);
    buttonIn(sidebar, QStringLiteral("New Download"))->click();
    EXPECT_EQ(sidebar.tab(), SidebarView::Tab::recent);
    EXPECT_EQ(sidebar.selection(), std::nullopt);
    EXPECT_EQ(selections.size(), 1);
    EXPECT_EQ(tabs.size(), 1);
    EXPECT_EQ(sidebar.findChild<SegmentedControl *>()->currentIndex(), 0);
}

TEST_F(HistoryListTest, downloadsAgainByArrowAndByReturn)
{
    addEntry();
    showWindow(sidebar);
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, list().visualRect(row(0)).center());
    EXPECT_TRUE(addresses.isEmpty());
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, arrow(0));
    EXPECT_EQ(addresses.size(), 1);
    QTest::mousePress(list().viewport(), Qt::LeftButton, {}, arrow(0));
    QTest::mouseRelease(list().viewport(), Qt::LeftButton, {}, QPoint(30, arrow(0).y()));
    EXPECT_EQ(addresses.size(), 1) << "let go beside it";
    list().setCurrentIndex(row(0));
    QTest::keyClick(&list(), Qt::Key_Return);
    EXPECT_EQ(addresses, (QStringList{address, address}));
}

TEST_F(HistoryListTest, arrowTakesTheAccentColourUnderThePointer)
{
    addEntry();
    showWindow(sidebar);
    const QColor accent = Theme::current().color(Theme::Color::Accent);
    const auto isAccent = [&] {
        const QImage picture = list().viewport()->grab().toImage();
        const QPoint centre = arrow(0);
        for (int y = centre.y() - 9; y < centre.y() + 9; ++y) {
            for (int x = centre.x() - 9; x < centre.x() + 9; ++x) {
                if (picture.pixelColor(x, y) == accent)
                    return true;
            }
        }
        return false;
    };
    EXPECT_FALSE(isAccent());
    QTest::mouseMove(list().viewport(), list().visualRect(row(0)).center());
    EXPECT_TRUE(QTest::qWaitFor(isAccent));
    QTest::mouseMove(list().viewport(), QPoint(100, 500));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !isAccent(); }));
}

TEST_F(HistoryListTest, offersWhatCanBeDoneWithAnEntry)
{
    addEntry();
    showWindow(sidebar);
    openMenuOf(0);
    EXPECT_EQ(itemsOf(*openMenu()),
              (QStringList{QStringLiteral("Re-download"), QStringLiteral("Copy URL"),
                           QStringLiteral("Open URL in Browser"), QStringLiteral("-"),
                           QStringLiteral("Remove from History")}));
    chooseFromMenu(QStringLiteral("Re-download"));
    EXPECT_EQ(addresses, QStringList{address});
    openMenuOf(0);
    chooseFromMenu(QStringLiteral("Copy URL"));
    openMenuOf(0);
    chooseFromMenu(QStringLiteral("Open URL in Browser"));
    EXPECT_EQ(
        desktop.log,
        (QStringList{QStringLiteral("copy ") + address, QStringLiteral("browse ") + address}));
    openMenuOf(0);
    chooseFromMenu(QStringLiteral("Remove from History"));
    EXPECT_TRUE(history.entries().isEmpty());
}

TEST_F(HistoryListTest, opensNoBrokenAddress)
{
    addEntry(QStringLiteral("https://[broken"));
    showWindow(sidebar);
    openMenuOf(0);
    chooseFromMenu(QStringLiteral("Open URL in Browser"));
    EXPECT_TRUE(desktop.log.isEmpty());
}

TEST_F(HistoryListTest, countsFromTheSecondDownloadOn)
{
    HistoryEntry entry;
    EXPECT_EQ(HistoryListModel::countText(entry), QString());
    entry.downloadCount = 3;
    EXPECT_EQ(HistoryListModel::countText(entry), QStringLiteral("· 3×"));
}

} // namespace
} // namespace clipwren::test
