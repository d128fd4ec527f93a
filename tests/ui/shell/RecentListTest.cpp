#include "ui/components/ConfirmationDialog.h"
#include "ui/components/Menu.h"
#include "ui/shell/SidebarFixture.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLineEdit>
#include <QMimeData>
#include <QScrollBar>

#include <memory>

namespace clipwren::test {
namespace {

using namespace Qt::StringLiterals;

class RecentListTest : public SidebarFixture {
protected:
    RecentListTest() : SidebarFixture(SidebarView::Tab::recent) { }

    void click(int item, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mouseClick(list().viewport(), button, modifiers, place(item).center());
    }
    ConfirmationDialog *clear()
    {
        buttonIn(sidebar, u"Clear Recents"_s)->click();
        return sidebar.findChild<ConfirmationDialog *>();
    }
};

TEST_F(RecentListTest, selectsByMouseAndKeyboard)
{
    const QUuid older = addRecord(u"Older"_s).id;
    const QUuid newer = addRecord(u"Newer"_s).id;
    showWindow(sidebar);
    click(0);
    QTest::keyClick(&list(), Qt::Key_Down);
    EXPECT_EQ(selections, (decltype(selections){newer, older}));
    click(1, Qt::LeftButton, Qt::ControlModifier);
    click(0, Qt::RightButton);
    EXPECT_EQ(selection.selectedID(), older) << "neither takes the selection away";

    QTest::keyClick(&list(), Qt::Key_Home);
    buttonIn(sidebar, u"New Download"_s)->click();
    EXPECT_EQ(selections, (decltype(selections){newer, older, newer, std::nullopt}));
    EXPECT_TRUE(list().selectionModel()->selectedIndexes().isEmpty());

    grantsSelection = false;
    click(0);
    EXPECT_EQ(selections.constLast(), newer);
    EXPECT_TRUE(list().selectionModel()->selectedIndexes().isEmpty()) << "until it is granted";
}

TEST_F(RecentListTest, followsTheWindowsSelectionSilently)
{
    const QUuid older = addRecord(u"Older"_s).id;
    addRecord(u"Newer"_s);
    selection.select(older);
    EXPECT_TRUE(list().selectionModel()->isSelected(row(1)));
    const DownloadRecord added = addRecord(u"Newest"_s);
    EXPECT_TRUE(list().selectionModel()->isSelected(row(2)));
    store.remove(added);
    EXPECT_TRUE(list().selectionModel()->isSelected(row(1)));
    store.clear();
    EXPECT_EQ(selection.selectedID(), older)
        << "the window decides what an id without record means";
    EXPECT_TRUE(selections.isEmpty());
}

TEST_F(RecentListTest, filtersBothListsByTitle)
{
    const QUuid first = addRecord(u"Tide clock"_s).id;
    addRecord(u"Harbour"_s);
    addRecord(u"The TIDE"_s);
    history.recordDownload(u"https://site.example/1"_s, u"Tide"_s, {}, {});
    history.recordDownload(u"https://site.example/2"_s, u"Harbour"_s, {}, {});
    selection.select(first);
    showWindow(sidebar);
    sidebar.startFiltering();
    auto *field = shown<QLineEdit>(sidebar, u"Filter by title"_s);
    ASSERT_NE(field, nullptr);
    const auto titles = [&] {
        QStringList texts;
        for (int row = 1; row < list().model()->rowCount(); ++row)
            texts << list().model()->index(row, 0).data().toString();
        return texts;
    };
    QTest::keyClicks(field, u"tide"_s);
    EXPECT_EQ(titles(), (QStringList{u"The TIDE"_s, u"Tide clock"_s}));
    EXPECT_TRUE(list().selectionModel()->isSelected(row(1)));
    // Rows lead to their own records.
    choose(0, u"Remove from List"_s);
    EXPECT_EQ(titles(), QStringList{u"Tide clock"_s});
    EXPECT_EQ(store.records().first().title, u"Harbour"_s);
    QTest::keyClicks(field, u"x"_s);
    EXPECT_EQ(titles(), QStringList());
    EXPECT_TRUE(shownTexts(sidebar).contains(u"No title matches"_s));
    EXPECT_EQ(selection.selectedID(), first);
    QTest::keyClick(field, Qt::Key_Backspace);
    EXPECT_TRUE(list().selectionModel()->isSelected(row(0)));

    sidebar.setTab(SidebarView::Tab::history);
    EXPECT_EQ(titles(), QStringList{u"Tide"_s});
    EXPECT_EQ(shown<QWidget>(sidebar, u"Clear History"_s), nullptr) << "it would take all";
    field->setFocus();
    QTest::keyClick(field, Qt::Key_Escape);
    EXPECT_EQ(titles(), (QStringList{u"Harbour"_s, u"Tide"_s}));
    EXPECT_FALSE(field->isVisible());
    EXPECT_TRUE(list().hasFocus());
    EXPECT_NE(shown<QWidget>(sidebar, u"Clear History"_s), nullptr);
    sidebar.setTab(SidebarView::Tab::recent);
    EXPECT_EQ(titles(), (QStringList{u"Harbour"_s, u"Tide clock"_s}));
}

TEST_F(RecentListTest, givesTheFileToWhereARowIsDragged)
{
    const DownloadRecord record = addRecord(u"There"_s);
    DownloadRecord gone = addRecord(u"Gone"_s);
    gone.filePath = path(u"gone.mp4"_s);
    store.update(gone);
    const QAbstractItemModel &model = *list().model();
    const std::unique_ptr<QMimeData> data(model.mimeData({row(1)}));
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(data->urls(), QList{QUrl::fromLocalFile(record.filePath)});
    EXPECT_EQ(model.mimeData({row(0)}), nullptr);
    EXPECT_TRUE(row(1).flags().testFlag(Qt::ItemIsDragEnabled));
}

TEST_F(RecentListTest, offersWhatCanBeDoneWithARecord)
{
    const DownloadRecord record = addRecord(u"Talk"_s);
    showWindow(sidebar);
    openMenuOf(0);
    EXPECT_EQ(itemsOf(openMenu()),
              (QStringList{u"Reveal in Finder"_s, u"Re-download this URL"_s,
                           u"Make QuickTime-compatible (re-encode)"_s, u"Copy Source URL"_s, u"-"_s,
                           u"Remove from List"_s}));
    const auto &menu = dynamic_cast<Menu &>(openMenu());
    EXPECT_TRUE(menu.isDestructive(menu.actions().constLast()));
    EXPECT_FALSE(menu.isDestructive(menu.actions().constFirst()));
    chooseFromMenu(u"Reveal in Finder"_s);
    choose(0, u"Copy Source URL"_s);
    choose(0, u"Re-download this URL"_s);
    buttonIn(sidebar, u"Open downloads folder in Finder"_s)->click();
    EXPECT_EQ(desktop.log,
              (QStringList{u"reveal "_s + record.filePath, u"copy "_s + record.sourceURL,
                           u"reveal "_s + path(u"Videos"_s)}));
    EXPECT_EQ(addresses, QStringList{record.sourceURL});
    EXPECT_TRUE(selections.isEmpty());

    list().setFocus(Qt::TabFocusReason);
    QTest::keyClick(&list(), Qt::Key_Down);
    QTest::keyClick(&list(), Qt::Key_F10, Qt::ShiftModifier);
    openMenu().close();
    // What the window system makes of the menu key.
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(&list(), &event);
    chooseFromMenu(u"Remove from List"_s);
    EXPECT_TRUE(store.records().isEmpty());
    EXPECT_TRUE(QFile::exists(record.filePath));
}

TEST_F(RecentListTest, bringsBackWhatWasRemoved)
{
    for (const QString &title : {u"C"_s, u"B"_s, u"A"_s})
        addRecord(title);
    const QList<DownloadRecord> before = store.records();
    showWindow(sidebar);
    click(1);
    QTest::keyClick(&list(), Qt::Key_Backspace);
    EXPECT_EQ(store.records(), before) << "meant for something else";
    QTest::keyClick(&list(), Qt::Key_Delete);
    EXPECT_TRUE(shows(sidebar, u"Removed “B”"_s));
    choose(1, u"Remove from List"_s);
    EXPECT_TRUE(shows(sidebar, u"Removed “C”"_s));
    EXPECT_EQ(store.records().size(), 1);
    const DownloadRecord added = addRecord(u"Meanwhile"_s);
    QTest::keyClick(&list(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(shows(sidebar, u"Removed “B”"_s));
    buttonIn(sidebar, u"Undo"_s)->click();
    EXPECT_EQ(store.records(), QList{added} + before);
    EXPECT_EQ(DownloadStore(folder()).records(), store.records());
    EXPECT_FALSE(buttonIn(sidebar, u"Undo"_s));
    QTest::keyClick(&list(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(store.records().size(), 4);

    // What was cleared stays so.
    choose(1, u"Remove from List"_s);
    buttonIn(*clear(), u"Clear Recents"_s)->click();
    EXPECT_FALSE(buttonIn(sidebar, u"Undo"_s));
}

TEST_F(RecentListTest, offersToUndoForAWhile)
{
    UndoLine line(std::chrono::milliseconds(50));
    const QSignalSpy expired(&line, &UndoLine::expired);
    line.offer(u"A"_s);
    showWindow(line);
    buttonIn(line, u"Undo"_s)->setFocus();
    QTest::qWait(150);
    EXPECT_EQ(expired.size(), 0) << "somebody is about to press it";
    buttonIn(line, u"Undo"_s)->clearFocus();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !expired.isEmpty(); }));
}

TEST_F(RecentListTest, saysThatTheListsCannotBeSaved)
{
    ASSERT_TRUE(QDir(folder()).mkdir(u"downloads.json"_s));
    showWindow(sidebar);
    EXPECT_FALSE(buttonIn(sidebar, u"Try Again"_s));
    addRecord(u"A"_s);
    sidebar.setTab(SidebarView::Tab::history);
    EXPECT_TRUE(shows(sidebar, u"The lists could not be saved"_s));
    EXPECT_FALSE(shownTexts(sidebar).filter(u"can neither be read nor kept"_s).isEmpty());
    buttonIn(sidebar, u"Try Again"_s)->click();
    EXPECT_TRUE(buttonIn(sidebar, u"Try Again"_s));
    QDir(folder()).rmdir(u"downloads.json"_s);
    buttonIn(sidebar, u"Try Again"_s)->click();
    EXPECT_FALSE(buttonIn(sidebar, u"Try Again"_s));
    EXPECT_EQ(DownloadStore(folder()).records(), store.records());
}

TEST_F(RecentListTest, noticesThatAFileHasGone)
{
    const DownloadRecord record = addRecord(u"Talk"_s);
    showWindow(sidebar);
    const auto picture = [this] { return list().viewport()->grab().toImage(); };
    const QImage before = picture();
    QFile::remove(record.filePath);
    EXPECT_EQ(picture(), before) << "the disk is not asked each time";
    QEvent activation(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&sidebar, &activation);
    EXPECT_NE(picture(), before);
    EXPECT_EQ(row(0).data(Qt::AccessibleTextRole), u"Talk, %1, file missing"_s.arg(now));
    openMenuOf(0);
    EXPECT_EQ(itemsOf(openMenu()).mid(0, 3),
              (QStringList{u"(Reveal in Finder)"_s, u"Re-download this URL"_s,
                           u"(Make QuickTime-compatible (re-encode))"_s}));
    openMenu().close();

    // Whoever looks at the record is told there, and here as well.
    const DownloadRecord other = addRecord(u"Other"_s);
    picture();
    QFile::remove(other.filePath);
    click(0);
    EXPECT_EQ(row(0).data(Qt::AccessibleTextRole), u"Other, %1, file missing"_s.arg(now));
}

TEST_F(RecentListTest, leadsTabToClearRecentsLastAndAsksBeforeItClears)
{
    const DownloadRecord record = addRecord(u"One"_s);
    history.recordDownload(record.sourceURL, record.title, {}, {});
    showWindow(sidebar);
    EXPECT_EQ(tabStops(*buttonIn(sidebar, u"Open downloads folder in Finder"_s)),
              (QStringList{u"Open downloads folder in Finder"_s, u"Recent"_s, u"New Download"_s,
                           u"Recent downloads"_s, u"Clear Recents"_s}));
    ConfirmationDialog *dialog = clear();
    EXPECT_TRUE(shows(*dialog, u"Clear Recents?"_s));
    const auto expectItems = [&](const QString &items) {
        EXPECT_TRUE(shows(*dialog,
                          u"Removes %1 from this list. Downloaded files are not deleted, and "
                          "History is preserved."_s.arg(items)))
            << items.toStdString();
    };
    expectItems(u"1 item"_s);
    addRecord(u"Two"_s);
    expectItems(u"2 items"_s);
    EXPECT_TRUE(shows(sidebar, u"2"_s));

    // Return presses what has the focus: Cancel.
    dialog->activateWindow();
    const Button *cancel = buttonIn(*dialog, u"Cancel"_s);
    ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::focusWidget() == cancel; }));
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        QTest::keyClick(dialog->focusWidget(), key);
        EXPECT_EQ(store.records().size(), 2);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        dialog = clear();
    }
    buttonIn(*dialog, u"Clear Recents"_s)->click();
    EXPECT_TRUE(store.records().isEmpty());
    EXPECT_FALSE(buttonIn(sidebar, u"Clear Recents"_s));
    EXPECT_EQ(history.entries().size(), 1);
    EXPECT_TRUE(QFile::exists(record.filePath));
}

TEST_F(RecentListTest, turnsASpinnerWhileARecordIsReencodedInSight)
{
    tools.add(u"ffmpeg"_s,
              u"while [ ! -e '%1' ]; do sleep 0.01; done; exit 1"_s.arg(path(u"go"_s)));
    const DownloadRecord record = addRecord(u"Talk"_s);
    const auto isTurning = [&] { return sidebar.recentList().view().isSpinnerTurning(); };
    Theme::current().forceReducedMotion(false);
    showWindow(sidebar);
    EXPECT_FALSE(isTurning());
    choose(0, u"Make QuickTime-compatible (re-encode)"_s);
    EXPECT_EQ(sidebar.reencodingIDs(), QSet<QUuid>{record.id});
    EXPECT_TRUE(isTurning());
    EXPECT_EQ(row(0).data(Qt::AccessibleTextRole), u"Talk, %1, re-encoding"_s.arg(now));
    sidebar.setTab(SidebarView::Tab::history);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !isTurning(); }));
    sidebar.setTab(SidebarView::Tab::recent);
    EXPECT_TRUE(QTest::qWaitFor([&] { return isTurning(); }));

    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    writeFile(u"go"_s, {});
    EXPECT_TRUE(QTest::qWaitFor([&] { return sidebar.reencodingIDs().isEmpty(); }));
    qInstallMessageHandler(nullptr);
    EXPECT_FALSE(isTurning());
    Theme::current().forceReducedMotion(true);
}

TEST_F(RecentListTest, aLongListScrollsAndChangesWithoutARowBeingAWidget)
{
    QJsonArray records;
    DownloadRecord record = bareRecord(u"A title of a usual length for a talk"_s);
    for (int index = 0; index < 100'000; ++index) {
        record.id = QUuid::createUuid();
        record.createdAt = record.createdAt.addSecs(-3600);
        records << record.toJson();
    }
    writeFile(u"downloads.json"_s, QJsonDocument(records).toJson());
    DownloadStore longStore(folder());
    ASSERT_EQ(longStore.records().size(), 100'000);

    SidebarView longSidebar(longStore, history, environment, desktop, selection, folder());
    longSidebar.resize(280, 848);
    showWindow(longSidebar);
    EXPECT_LT(longSidebar.findChildren<QWidget *>().size(), 60);
    LibraryListView &list = longSidebar.recentList().view();
    QScrollBar &bar = *list.verticalScrollBar();
    // A download that ends leaves the reader where he is, relative to the rows.
    selection.select(longStore.records().at(50'000).id);
    const QModelIndex selected = list.selectionModel()->currentIndex();
    EXPECT_TRUE(list.viewport()->rect().contains(list.visualRect(selected)));
    const int before = bar.value();
    Q_EMIT longStore.changed();
    QCoreApplication::processEvents();
    EXPECT_EQ(bar.value(), before);
    EXPECT_EQ(list.selectionModel()->currentIndex(), selected);
}

} // namespace
} // namespace clipwren::test
