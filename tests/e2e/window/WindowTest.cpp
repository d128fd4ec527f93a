#include "app/window/AboutDialog.h"
#include "app/window/WindowPlacement.h"
#include "core/media/FfmpegService.h"
#include "e2e/window/WindowFixture.h"
#include "platform/system/SystemDesktop.h"
#include "support/Widgets.h"
#include "ui/components/ConfirmationDialog.h"
#include "ui/components/Slider.h"
#include "ui/player/SafeVideoPlayer.h"

#include <QComboBox>
#include <QDropEvent>
#include <QFile>
#include <QFocusFrame>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QScreen>
#include <QSplitter>
#include <QTest>
#include <QWindow>

namespace clipwren::test {
namespace {

using namespace Qt::StringLiterals;

class WindowTest : public WindowFixture {
protected:
    /// Drags a handle of the trim slider sideways.
    void dragHandle(const QString &name, int pixels)
    {
        auto *handle = shown<Slider>(window(), name);
        ASSERT_NE(handle, nullptr);
        // Which takes the mouse for its handles.
        QWidget *slider = handle->parentWidget();
        const QPoint from = handle->geometry().center();
        QTest::mousePress(slider, Qt::LeftButton, Qt::NoModifier, from);
        const QPoint to = from + QPoint(pixels, 0);
        QTest::mouseMove(slider, to);
        QMouseEvent move(QEvent::MouseMove, to, slider->mapToGlobal(to), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(slider, &move);
        QTest::mouseRelease(slider, Qt::LeftButton, Qt::NoModifier, to);
    }
};

TEST(SystemDesktop, copiesAndPastesText)
{
    SystemDesktop desktop;
    for (const QString &text : {u"https://site.example/ü"_s, u""_s}) {
        desktop.setClipboardText(text);
        EXPECT_EQ(desktop.clipboardText(), text);
    }
}

TEST_F(WindowTest, takesAVideoFromTheAddressToTheLibraryAndBack)
{
    open();
    const QString address = site.address(u"/watch?v=tide-clock-01"_s);
    auto *field = qobject_cast<QLineEdit *>(await(u"Video address"_s));
    ASSERT_NE(field, nullptr);
    field->setFocus();
    QTest::keyClicks(field, address);
    QTest::keyClick(field, Qt::Key_Return);

    await(u"Is this the right video?"_s);
    EXPECT_TRUE(awaitText(u"Harbour Workshop"_s));
    QTest::keyClick(await(u"Continue"_s), Qt::Key_Return);

    await(u"Format"_s);
    auto *picker = window().findChild<QComboBox *>();
    ASSERT_NE(picker, nullptr);
    EXPECT_TRUE(awaitText(u"This file won't play in QuickTime"_s));
    QTest::keyClick(picker, Qt::Key_Down);
    EXPECT_TRUE(awaitText(u"plays everywhere on Mac"_s));

    click(u"Trim before saving"_s);
    await(u"Play Clip"_s);
    QTest::qWait(100);
    dragHandle(u"Start"_s, 100);
    dragHandle(u"End"_s, -150);
    DownloaderView *const downloader = window().content().detail().downloader();
    const double start = downloader->trimStart();
    const double end = downloader->trimEnd();
    EXPECT_GT(start, 1);
    EXPECT_LT(end, 11);
    click(u"Download"_s);

    // The new record is selected, and its file is shown and inspected.
    ASSERT_TRUE(QTest::qWaitFor([&] { return store.records().size() == 1; }, 120'000));
    const DownloadRecord record = store.records().first();
    EXPECT_EQ(record.trimStart, start);
    EXPECT_EQ(window().content().selection().selectedID(), record.id);
    EXPECT_EQ(window().windowTitle(), record.title);
    EXPECT_TRUE(awaitText(u"Plays in QuickTime"_s));
    EXPECT_TRUE(awaitText(u"H.264 + AAC"_s));
    auto *player = window().findChild<SafeVideoPlayer *>();
    ASSERT_NE(player, nullptr);
    const double length =
        FfmpegService{*tools->ffmpegPath(), *tools->ffprobePath()}.duration(record.filePath);
    EXPECT_NEAR(length, end - start, 0.1);
    EXPECT_EQ(desktop.log, QStringList{u"sound"_s});

    // Re-encode.
    chooseForLastRow(recents(), u"Make QuickTime-compatible (re-encode)"_s);
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return store.records().first().filePath.contains(u"— QT.mp4"_s); }, 60'000));
    EXPECT_TRUE(awaitText(u"— QT.mp4"_s));
    EXPECT_TRUE(QFile::exists(record.filePath));

    // Again, from the history.
    click(u"History"_s);
    chooseForLastRow(historyRows(), u"Re-download"_s);
    await(u"Is this the right video?"_s);
    EXPECT_FALSE(window().content().selection().selectedID());
    click(u"Not this one"_s);

    // Remove and clear.
    click(u"Clear History"_s);
    EXPECT_TRUE(history.entries().isEmpty());
    EXPECT_TRUE(awaitText(u"Nothing downloaded yet"_s));
    click(u"Recent"_s);
    chooseForLastRow(recents(), u"Remove from List"_s);
    EXPECT_TRUE(store.records().isEmpty());
    EXPECT_TRUE(awaitText(u"No downloads yet"_s));
    EXPECT_TRUE(QFile::exists(record.filePath));
}

TEST_F(WindowTest, setUpLastsUntilTheToolsAreThere)
{
    FakeTools folder;
    folder.add(u"yt-dlp"_s, u"echo 2026.01.01"_s);
    folder.add(u"ffmpeg"_s, u"echo ffmpeg version 7.0.1 x"_s);
    const DownloadRecord record = addRecord(u"A file of before"_s);

    open({folder.directory()});
    await(u"One-time setup"_s);
    EXPECT_TRUE(awaitText(u"Not installed"_s));
    EXPECT_TRUE(awaitText(u"7.0.1"_s));
    QTest::mouseClick(recents().viewport(), Qt::LeftButton, Qt::NoModifier,
                      recents().visualRect(recents().model()->index(1, 0)).center());
    EXPECT_EQ(window().content().selection().selectedID(), record.id);
    folder.add(u"ffprobe"_s, u"exit 1"_s);
    QTest::keyClick(&window(), Qt::Key_R, Qt::ControlModifier);
    EXPECT_TRUE(awaitText(u"File no longer at expected location"_s));
}

TEST_F(WindowTest, clicksLeaveNoFocusRingWhereNobodyWas)
{
    const DownloadRecord record = addRecord(u"Talk"_s);
    history.recordDownload(record.sourceURL, record.title, {}, {});
    open({fake.tools.directory()});
    const auto expectNoRing = [&] {
        for (const QFocusFrame *frame : window().findChildren<QFocusFrame *>())
            EXPECT_FALSE(frame->isVisible()) << nameOf(*window().focusWidget()).toStdString();
        EXPECT_EQ(nameOf(*window().focusWidget()), u"New Download"_s);
    };
    click(u"History"_s);
    // Not the pane's title, which says the same.
    QTest::mouseClick(&historyRows().newDownload(), Qt::LeftButton);
    expectNoRing();
    click(u"History"_s);
    click(u"Clear History"_s);
    expectNoRing();
    click(u"Recent"_s);
    click(u"Clear Recents"_s);
    QTest::mouseClick(
        shown<QWidget>(*window().findChild<ConfirmationDialog *>(), u"Clear Recents"_s),
        Qt::LeftButton);
    EXPECT_TRUE(awaitText(u"No downloads yet"_s));
    expectNoRing();
}

TEST_F(WindowTest, aDownloadIsStoppedOnlyWhenThatIsWanted)
{
    addRecord(u"Older"_s);
    const DownloadRecord record = addRecord(u"Talk"_s);
    history.recordDownload(record.sourceURL, record.title, {}, {});
    startDownload(u"echo '42%||NA||NA'; exec sleep 60"_s);
    await(u"Downloading"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return window().windowTitle() == u"42% – New Download"; }));
    ContentView &content = window().content();

    const auto clickRecord = [&] {
        QTest::mouseClick(recents().viewport(), Qt::LeftButton, {},
                          recents().visualRect(recents().model()->index(1, 0)).center());
    };
    const auto expectNothingChanged = [&] {
        EXPECT_TRUE(content.detail().isDownloading());
        EXPECT_EQ(content.selection().selectedID(), std::nullopt);
        EXPECT_TRUE(recents().selectionModel()->selectedIndexes().isEmpty());
    };
    clickRecord();
    await(u"Stop and Show"_s);
    expectNothingChanged();
    click(u"Cancel"_s);
    recents().setFocus();
    QTest::keyClick(&recents(), Qt::Key_Down);
    await(u"Stop and Show"_s);
    click(u"Cancel"_s);
    click(u"History"_s);
    chooseForLastRow(historyRows(), u"Re-download"_s);
    await(u"Stop and Look Up"_s);
    click(u"Cancel"_s);
    expectNothingChanged();
    content.lookUp(u"https://site.example/2"_s);
    await(u"Stop and Look Up"_s);
    click(u"Cancel"_s);
    expectNothingChanged();

    content.lookUp(u"https://site.example/3"_s);
    click(u"Stop and Look Up"_s);
    QTest::keyClick(await(u"Continue"_s), Qt::Key_Return);
    EXPECT_EQ(content.detail().downloader()->urlText(), u"https://site.example/3");
    QTest::keyClick(await(u"Download"_s), Qt::Key_Space);
    await(u"Downloading"_s);
    click(u"Recent"_s);
    clickRecord();
    click(u"Stop and Show"_s);
    EXPECT_EQ(content.selection().selectedID(), record.id);
    EXPECT_TRUE(awaitText(u"File no longer at expected location"_s));
}

TEST_F(WindowTest, opensAsItWasClosedWithinTheScreen)
{
    const QStringList folders{fake.tools.directory()};
    open(folders);
    EXPECT_EQ(window().size(), QSize(1120, 900));
    EXPECT_EQ(window().content().sidebar().width(), 280);
    window().resize(900, 700);
    auto *columns = window().findChild<QSplitter *>();
    QTest::mousePress(columns->handle(1), Qt::LeftButton);
    QTest::mouseMove(columns->handle(1), QPoint(40, 5));
    QTest::mouseRelease(columns->handle(1), Qt::LeftButton, {}, QPoint(40, 5));
    const int width = window().content().sidebar().width();
    EXPECT_GT(width, 300);
    window().content().toggleSidebar();
    window().close();

    open(folders);
    EXPECT_EQ(window().size(), QSize(900, 700));
    EXPECT_TRUE(window().content().isSidebarHidden());
    window().content().toggleSidebar();
    QCoreApplication::processEvents();
    EXPECT_EQ(window().content().sidebar().width(), width);
    window().showMaximized();
    window().close();

    open(folders);
    EXPECT_TRUE(window().isMaximized());
    for (const QString &size : {u"90000x90000"_s, u"-5x1"_s, u"x"_s, u"900"_s}) {
        preferences.setText(u"windowMaximized"_s, u"false"_s);
        preferences.setText(u"windowSize"_s, size);
        preferences.setText(u"sidebarWidth"_s, size);
        open(folders);
        const QSize screen = window().screen()->availableGeometry().size();
        EXPECT_TRUE(QRect({}, screen).contains(QRect({}, window().frameGeometry().size())));
        EXPECT_GE(window().height(), 900);
    }
    EXPECT_EQ(boundedWindowSize({1120, 900}, {1024, 768}), QSize(1022, 728));
}

TEST_F(WindowTest, aLinkDroppedOnTheAddressIsLookedUp)
{
    open({fake.tools.directory()});
    QMimeData link;
    link.setUrls({QUrl(u"https://site.example/1"_s)});
    QWidget *const field = await(u"Video address"_s);
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &link, Qt::LeftButton, {});
    QApplication::sendEvent(field, &enter);
    QDropEvent drop({5, 5}, Qt::CopyAction, &link, Qt::LeftButton, {});
    QApplication::sendEvent(field, &drop);
    await(u"Is this the right video?"_s);
}

TEST_F(WindowTest, aboutTellsTheAgeOfTheDownloader)
{
    const FakeTools fakes;
    fakes.add(u"yt-dlp"_s, u"echo 2023.03.04"_s);
    open({fakes.directory()});
    ASSERT_TRUE(QTest::qWaitFor([&] { return tools->ytDlpVersion().has_value(); }, 20'000));
    const AboutDialog about(*tools, nullptr, QDate(2026, 5, 1));
    QStringList texts;
    for (const auto *label : about.findChildren<QLabel *>())
        texts.append(label->text());
    EXPECT_TRUE(texts.contains(u"2023.03.04 (over three years old)"_s));
}

TEST_F(WindowTest, comesToFrontForALaterStart)
{
    const DownloadRecord record = addRecord(u"Saved"_s);
    open();
    window().content().selection().select(record.id);
    window().comeToFront({});
    EXPECT_EQ(window().windowTitle(), u"Saved"_s);
    window().comeToFront({.newDownload = true});
    EXPECT_EQ(window().windowTitle(), u"New Download"_s);
    EXPECT_EQ(window().focusWidget(), await(u"Video address"_s));
    window().comeToFront({.activationToken = u"asked-by-the-user"_s});
    EXPECT_TRUE(window().isActiveWindow());
    EXPECT_FALSE(qEnvironmentVariableIsSet("XDG_ACTIVATION_TOKEN"));
}

} // namespace
} // namespace clipwren::test
