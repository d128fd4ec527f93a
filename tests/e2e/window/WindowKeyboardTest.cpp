#include "app/window/ShortcutsDialog.h"
#include "e2e/window/WindowFixture.h"
#include "support/Widgets.h"

#include <QFile>
#include <QMenu>
#include <QTest>

namespace clipwren::test {
namespace {

using namespace Qt::StringLiterals;

class WindowKeyboardTest : public WindowFixture {
protected:
    /// Goes to where the keyboard is at something of that name.
    void tabTo(const QString &name)
    {
        await(name);
        for (int stop = 0; stop < 40 && nameOf(*window().focusWidget()) != name; ++stop)
            press(Qt::Key_Tab);
        ASSERT_EQ(nameOf(*window().focusWidget()), name);
    }
    /// Presses the key where the keyboard is.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QWidget *const menu = QApplication::activePopupWidget();
        QTest::keyClick(menu ? menu : window().focusWidget(), key, modifiers);
    }
};

TEST_F(WindowKeyboardTest, theWholeWayCanBeGoneByTheKeyboardAlone)
{
    open();
    tabTo(u"Video address"_s);
    QTest::keyClicks(window().focusWidget(), site.address(u"/watch?v=tide-clock-01"_s));
    press(Qt::Key_Return);
    tabTo(u"Continue"_s);
    press(Qt::Key_Return);
    tabTo(u"Trim before saving"_s);
    press(Qt::Key_Space);
    tabTo(u"End"_s);
    press(Qt::Key_PageDown);
    press(Qt::Key_Return, Qt::ControlModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return store.records().size() == 1; }, 120'000));
    const DownloadRecord record = store.records().first();
    EXPECT_LT(record.trimEnd.value_or(0), 12);
    EXPECT_GT(record.trimEnd.value_or(0), 0);

    tabTo(u"Recent downloads"_s);
    press(Qt::Key_F10, Qt::ShiftModifier);
    for (int entry = 0; entry < 3; ++entry)
        press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return store.records().first().filePath.contains(u"— QT.mp4"_s); }, 60'000));
    press(Qt::Key_Delete);
    EXPECT_TRUE(store.records().isEmpty());
    EXPECT_TRUE(QFile::exists(record.filePath));
}

TEST_F(WindowKeyboardTest, theKeyboardStaysInTheListThatItWalksThrough)
{
    for (const QString &title : {u"First"_s, u"Second [*] of 3"_s, u"Third"_s})
        addRecord(title);
    open();
    recents().setFocus();
    QTest::keyClick(&recents(), Qt::Key_Down);
    ASSERT_TRUE(window().content().selection().selectedID());
    EXPECT_EQ(window().windowHandle()->title(), u"Second [*] of 3"_s);
    EXPECT_EQ(window().focusWidget(), &recents());
    QTest::keyClick(window().focusWidget(), Qt::Key_Down);
    EXPECT_EQ(window().windowTitle(), u"First"_s);
    EXPECT_EQ(window().focusWidget(), &recents());
    // Back at the downloader, which would take the next one for a key of its own.
    QTest::keyClick(window().focusWidget(), Qt::Key_Delete);
    EXPECT_EQ(store.records().size(), 2);
    EXPECT_EQ(window().windowTitle(), u"New Download"_s);
    EXPECT_EQ(window().focusWidget(), &recents());
    QTest::keyClick(window().focusWidget(), Qt::Key_Up);
    QTest::keyClick(window().focusWidget(), Qt::Key_Return);
    EXPECT_NE(window().windowTitle(), u"New Download"_s);

    click(u"New Download"_s);
    EXPECT_EQ(window().focusWidget(), await(u"Video address"_s));
}

TEST_F(WindowKeyboardTest, tabGoesThroughThePaneInTheOrderInWhichItIsRead)
{
    open({fake.tools.directory()});
    EXPECT_FALSE(shown<QWidget>(window(), u"Open downloads folder in Finder"_s)->hasFocus());
    QTest::keyClick(window().focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(window().focusWidget(), await(u"Video address"_s));

    startDownload(u"exit 1"_s);
    await(u"Dismiss"_s);
    const QStringList stops = tabStops(*await(u"Show or Hide Sidebar"_s));
    EXPECT_EQ(stops.mid(0, 7),
              (QStringList{u"Show or Hide Sidebar"_s, u"Open Downloads Folder"_s, u"Menu"_s,
                           u"Video address"_s, u"Clear"_s, u"Paste"_s, u"Save as"_s}));
    EXPECT_EQ(stops.mid(8, 3), (QStringList{u"Trim before saving"_s, u"Download"_s, u"Dismiss"_s}));
}

TEST_F(WindowKeyboardTest, itsMenuShortcutsAndFilterAreReachedByTheKeyboard)
{
    addRecord(u"Talk"_s);
    addRecord(u"Walk"_s);
    open();
    QTest::keyClick(&window(), Qt::Key_F10);
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->activeAction()->text(), u"Show or Hide Sidebar"_s);
    menu->close();
    for (const auto &[key, modifiers] : {std::pair(Qt::Key_F1, Qt::NoModifier),
                                         std::pair(Qt::Key_Question, Qt::ControlModifier)}) {
        QTest::keyClick(&window(), key, modifiers);
        auto *shortcuts = window().findChild<ShortcutsDialog *>();
        ASSERT_NE(shortcuts, nullptr);
        EXPECT_TRUE(shownTexts(*shortcuts).contains(u"Filter the list by title"_s));
        QTest::keyClick(shortcuts, Qt::Key_Escape);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !window().findChild<ShortcutsDialog *>(); }));
    }
    QTest::keyClick(&window(), Qt::Key_F9);
    QTest::keyClick(&window(), Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(window().focusWidget(), u"wa"_s);
    EXPECT_EQ(recents().model()->rowCount(), 2);
    QTest::keyClick(window().focusWidget(), Qt::Key_Down);
    EXPECT_EQ(window().focusWidget(), &recents());
}

} // namespace
} // namespace clipwren::test
