#include "ui/shell/RecentList.h"

#include "ui/components/ConfirmationDialog.h"
#include "ui/components/Menu.h"
#include "ui/shell/LibraryListView.h"
#include "ui/shell/RowSpinner.h"
#include "ui/shell/ShellFixture.h"
#include "ui/shell/SidebarView.h"

#include <QAccessible>
#include <QApplication>
#include <QFile>
#include <QScrollBar>
#include <QSignalSpy>

#include <algorithm>

namespace clipwren::test {
namespace {

using Selection = std::optional<QUuid>;

class RecentListTest : public ShellFixture {
protected:
    RecentListTest()
    {
        sidebar.resize(280, 600);
        QObject::connect(&sidebar, &SidebarView::selectionChanged,
                         [this](const Selection &id) { selections << id; });
        QObject::connect(&sidebar, &SidebarView::redownloadRequested,
                         [this](const QString &address) { addresses << address; });
    }

    LibraryListView &list() { return sidebar.recentList().view(); }
    /// Items count from 0.
    QModelIndex row(int item) { return list().model()->index(item + 1, 0); }
    void click(int item, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mouseClick(list().viewport(), button, modifiers,
                          list().visualRect(row(item)).center());
    }
    /// Opens an item's menu as the pointer does.
    void openMenuOf(int item)
    {
        const QPoint place = list().visualRect(row(item)).center();
        QContextMenuEvent event(QContextMenuEvent::Mouse, place,
                                list().viewport()->mapToGlobal(place));
        QApplication::sendEvent(list().viewport(), &event);
    }
    void choose(int item, const QString &text)
    {
        openMenuOf(item);
        chooseFromMenu(text);
    }
    ConfirmationDialog *clear()
    {
        buttonIn(sidebar, QStringLiteral("Clear Recents"))->click();
        return sidebar.findChild<ConfirmationDialog *>();
    }
    /// The strongest contrast to the ground that the row's texts and icon reach, 0 to 255.
    int strength(int item)
    {
        const QImage picture = list().viewport()->grab(list().visualRect(row(item))).toImage();
        const int ground = qGray(picture.pixel(2, 2));
        int strongest = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                strongest = std::max(strongest, std::abs(qGray(picture.pixel(x, y)) - ground));
        }
        return strongest;
    }

    QList<Selection> selections;
    QStringList addresses;
    SidebarView sidebar{store, history, environment, desktop};
};

TEST_F(RecentListTest, saysSoWhenEmpty)
{
    EXPECT_TRUE(shows(sidebar, QStringLiteral("No downloads yet")));
    EXPECT_EQ(buttonIn(sidebar, QStringLiteral("Clear Recents")), nullptr);
    addRecord(QStringLiteral("Talk"));
    EXPECT_FALSE(shows(sidebar, QStringLiteral("No downloads yet")));
    EXPECT_NE(buttonIn(sidebar, QStringLiteral("Clear Recents")), nullptr);
    EXPECT_TRUE(shows(sidebar, QStringLiteral("1")));
}

TEST_F(RecentListTest, selectsByMouseAndKeyboard)
{
    const QUuid older = addRecord(QStringLiteral("Older")).id;
    const QUuid newer = addRecord(QStringLiteral("Newer")).id;
    showWindow(sidebar);
    click(0);
    QTest::keyClick(&list(), Qt::Key_Down);
    EXPECT_EQ(selections, (QList<Selection>{newer, older}));
    click(1, Qt::LeftButton, Qt::ControlModifier);
    click(0, Qt::RightButton);
    EXPECT_EQ(sidebar.selection(), older) << "neither takes the selection away";

    QTest::keyClick(&list(), Qt::Key_Home);
    buttonIn(sidebar, QStringLiteral("New Download"))->click();
    EXPECT_EQ(selections, (QList<Selection>{newer, older, newer, std::nullopt}));
    EXPECT_TRUE(list().selectionModel()->selectedIndexes().isEmpty());
}

TEST_F(RecentListTest, followsTheWindowsSelectionSilently)
{
    const QUuid older = addRecord(QStringLiteral("Older")).id;
    addRecord(QStringLiteral("Newer"));
    sidebar.setSelection(older);
    EXPECT_TRUE(list().selectionModel()->isSelected(row(1)));
    const DownloadRecord added = addRecord(QStringLiteral("Newest"));
    EXPECT_TRUE(list().selectionModel()->isSelected(row(2)));
    store.remove(added);
    EXPECT_TRUE(list().selectionModel()->isSelected(row(1)));
    store.clear();
    EXPECT_EQ(sidebar.selection(), older) << "the window decides what an id without record means";
    EXPECT_TRUE(selections.isEmpty());
}

TEST_F(RecentListTest, offersWhatCanBeDoneWithARecord)
{
    const DownloadRecord record = addRecord(QStringLiteral("Talk"));
    showWindow(sidebar);
    openMenuOf(0);
    EXPECT_EQ(
        itemsOf(*openMenu()),
        (QStringList{QStringLiteral("Reveal in Finder"), QStringLiteral("Re-download this URL"),
                     QStringLiteral("Make QuickTime-compatible (re-encode)"),
                     QStringLiteral("Copy Source URL"), QStringLiteral("-"),
                     QStringLiteral("Remove from List")}));
    auto *menu = qobject_cast<Menu *>(openMenu());
    EXPECT_TRUE(menu->isDestructive(menu->actions().constLast()));
    EXPECT_FALSE(menu->isDestructive(menu->actions().constFirst()));
    chooseFromMenu(QStringLiteral("Reveal in Finder"));
    choose(0, QStringLiteral("Copy Source URL"));
    choose(0, QStringLiteral("Re-download this URL"));
    EXPECT_EQ(desktop.log,
              (QStringList{QStringLiteral("reveal ") + record.filePath,
                           QStringLiteral("copy ") + record.sourceURL}));
    EXPECT_EQ(addresses, QStringList{record.sourceURL});
    choose(0, QStringLiteral("Remove from List"));
    EXPECT_TRUE(store.records().isEmpty());
    EXPECT_TRUE(QFile::exists(record.filePath));
    EXPECT_TRUE(selections.isEmpty());
}

TEST_F(RecentListTest, opensTheMenuByKey)
{
    addRecord(QStringLiteral("Older"));
    addRecord(QStringLiteral("Newer"));
    showWindow(sidebar);
    list().setFocus(Qt::TabFocusReason);
    QTest::keyClick(&list(), Qt::Key_Down);
    QTest::keyClick(&list(), Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_EQ(openMenu()->actions().size(), 6);
    openMenu()->close();
    // What the window system makes of the menu key.
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(&list(), &event);
    EXPECT_EQ(openMenu()->actions().size(), 6);
    openMenu()->close();
}

TEST_F(RecentListTest, removesTheCurrentRecordByKey)
{
    addRecord(QStringLiteral("Older"));
    const DownloadRecord newer = addRecord(QStringLiteral("Newer"));
    showWindow(sidebar);
    click(0);
    QTest::keyClick(&list(), Qt::Key_Delete);
    ASSERT_EQ(store.records().size(), 1);
    EXPECT_EQ(store.records().constFirst().title, QStringLiteral("Older"));
    EXPECT_EQ(sidebar.selection(), newer.id);
}

TEST_F(RecentListTest, dimsARecordWhoseFileHasGone)
{
    const DownloadRecord record = addRecord(QStringLiteral("Talk"));
    showWindow(sidebar);
    const int before = strength(0);
    QFile::remove(record.filePath);
    EXPECT_EQ(strength(0), before) << "the disk is not asked each time";
    QEvent activation(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&sidebar, &activation);
    EXPECT_NEAR(strength(0), before * 0.55, 12);
    EXPECT_TRUE(row(0)
                    .data(Qt::AccessibleTextRole)
                    .toString()
                    .startsWith(QStringLiteral("Talk, now, file missing")));
    openMenuOf(0);
    EXPECT_EQ(
        itemsOf(*openMenu()).mid(0, 3),
        (QStringList{QStringLiteral("(Reveal in Finder)"), QStringLiteral("Re-download this URL"),
                     QStringLiteral("(Make QuickTime-compatible (re-encode))")}));
    openMenu()->close();
}

TEST_F(RecentListTest, asksBeforeItClears)
{
    const DownloadRecord record = addRecord(QStringLiteral("One"));
    history.recordDownload(record.sourceURL, record.title, {}, {});
    showWindow(sidebar);
    const auto message = [](const QString &items) {
        return QStringLiteral("Removes %1 from this list. Downloaded files are not deleted, and "
                              "History is preserved.")
            .arg(items);
    };
    ConfirmationDialog *dialog = clear();
    EXPECT_TRUE(shows(*dialog, QStringLiteral("Clear Recents?")));
    EXPECT_TRUE(shows(*dialog, message(QStringLiteral("1 item"))));
    addRecord(QStringLiteral("Two"));
    EXPECT_TRUE(shows(*dialog, message(QStringLiteral("2 items"))));
    store.clear();
    EXPECT_TRUE(shows(*dialog, message(QStringLiteral("0 items"))));
    addRecord(QStringLiteral("Three"));

    dialog->activateWindow();
    const Button *cancel = buttonIn(*dialog, QStringLiteral("Cancel"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::focusWidget() == cancel; }));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(store.records().size(), 1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    dialog = clear();
    QTest::keyClick(dialog, Qt::Key_Escape);
    EXPECT_EQ(store.records().size(), 1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    buttonIn(*clear(), QStringLiteral("Clear Recents"))->click();
    EXPECT_TRUE(store.records().isEmpty());
    EXPECT_EQ(history.entries().size(), 1);
    EXPECT_TRUE(QFile::exists(record.filePath));
}

TEST_F(RecentListTest, turnsASpinnerWhileARecordIsReencodedInSight)
{
    const QString go = path(QStringLiteral("go"));
    tools.add(QStringLiteral("ffmpeg"),
              QStringLiteral("while [ ! -e '%1' ]; do sleep 0.01; done; exit 1").arg(go));
    const DownloadRecord record = addRecord(QStringLiteral("Talk"));
    const auto *spinner = sidebar.findChild<RowSpinner *>();
    Theme::current().forceReducedMotion(false);
    showWindow(sidebar);
    EXPECT_FALSE(spinner->isTurning());
    choose(0, QStringLiteral("Make QuickTime-compatible (re-encode)"));
    EXPECT_EQ(sidebar.reencodingIDs(), QSet<QUuid>{record.id});
    EXPECT_TRUE(spinner->isTurning());
    EXPECT_TRUE(row(0).data(Qt::AccessibleTextRole).toString().contains(QStringLiteral("re-enc")));
    sidebar.setTab(SidebarView::Tab::history);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !spinner->isTurning(); }));
    sidebar.setTab(SidebarView::Tab::recent);
    EXPECT_TRUE(QTest::qWaitFor([&] { return spinner->isTurning(); }));

    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    writeFile(QStringLiteral("go"), {});
    EXPECT_TRUE(QTest::qWaitFor([&] { return sidebar.reencodingIDs().isEmpty(); }));
    qInstallMessageHandler(nullptr);
    EXPECT_FALSE(spinner->isTurning());
    Theme::current().forceReducedMotion(true);
}

TEST_F(RecentListTest, showsTheDownloadsFolder)
{
    buttonIn(sidebar, QStringLiteral("Open downloads folder in Finder"))->click();
    EXPECT_EQ(desktop.log,
              QStringList{QStringLiteral("reveal ") + DownloadStore::defaultDownloadDirectory()});
}

TEST_F(RecentListTest, isWalkedThroughByTab)
{
    addRecord(QStringLiteral("Talk"));
    showWindow(sidebar);
    QStringList stops;
    buttonIn(sidebar, QStringLiteral("Open downloads folder in Finder"))->setFocus();
    for (int stop = 0; stop < 4; ++stop) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        const QWidget *widget = QApplication::focusWidget();
        const auto *button = qobject_cast<const QAbstractButton *>(widget);
        stops << (button ? button->text() : widget->accessibleName());
    }
    EXPECT_EQ(stops,
              (QStringList{QStringLiteral("Recent"), QStringLiteral("New Download"),
                           QStringLiteral("Recent downloads"), QStringLiteral("Clear Recents")}));
}

} // namespace
} // namespace clipwren::test
