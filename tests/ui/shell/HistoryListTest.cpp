#include "ui/components/Picker.h"
#include "ui/shell/SidebarFixture.h"

namespace clipwren::test {
namespace {

using namespace Qt::StringLiterals;

const QString address = u"https://example.org/watch?a=1"_s;

class HistoryListTest : public SidebarFixture {
protected:
    HistoryListTest() : SidebarFixture(SidebarView::Tab::history) { }

    void addEntry(const QString &url = address) { history.recordDownload(url, u"Talk"_s, {}, {}); }
};

TEST_F(HistoryListTest, newDownloadLeadsBackToTheRecentTab)
{
    selection.select(addRecord(u"Talk"_s).id);
    buttonIn(sidebar, u"New Download"_s)->click();
    EXPECT_EQ(sidebar.tab(), SidebarView::Tab::recent);
    EXPECT_EQ(selection.selectedID(), std::nullopt);
    EXPECT_EQ(selections.size(), 1);
    EXPECT_EQ(sidebar.findChild<SegmentedControl *>()->currentIndex(), 0);
}

TEST_F(HistoryListTest, downloadsAgainByArrowAndByReturn)
{
    addEntry();
    showWindow(sidebar);
    const QPoint middle = place(0).center();
    const QPoint arrow(place(0).right() - 24, middle.y());
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, middle);
    EXPECT_TRUE(addresses.isEmpty());
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, arrow);
    EXPECT_EQ(addresses.size(), 1);
    QTest::mousePress(list().viewport(), Qt::LeftButton, {}, arrow);
    QTest::mouseRelease(list().viewport(), Qt::LeftButton, {}, middle);
    EXPECT_EQ(addresses.size(), 1) << "released beside it";
    list().setCurrentIndex(row(0));
    QTest::keyClick(&list(), Qt::Key_Return);
    EXPECT_EQ(addresses, (QStringList{address, address}));
}

TEST_F(HistoryListTest, offersWhatCanBeDoneWithAnEntry)
{
    addEntry(u"https://[broken"_s);
    addEntry();
    addEntry();
    showWindow(sidebar);
    EXPECT_EQ(row(0).data(Qt::AccessibleTextRole), u"Talk, %1, downloaded 2 times"_s.arg(now));
    openMenuOf(0);
    EXPECT_EQ(itemsOf(openMenu()),
              (QStringList{u"Re-download"_s, u"Copy URL"_s, u"Open URL in Browser"_s, u"-"_s,
                           u"Remove from History"_s}));
    chooseFromMenu(u"Re-download"_s);
    EXPECT_EQ(addresses, QStringList{address});
    choose(0, u"Copy URL"_s);
    choose(0, u"Open URL in Browser"_s);
    choose(1, u"Open URL in Browser"_s); // the broken one
    EXPECT_EQ(desktop.log, (QStringList{u"copy "_s + address, u"browse "_s + address}));
    choose(0, u"Remove from History"_s);
    EXPECT_EQ(history.entries().size(), 1);
}

} // namespace
} // namespace clipwren::test
