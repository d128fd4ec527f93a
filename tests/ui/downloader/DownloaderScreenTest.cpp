#include "ScreenTest.h"
#include "ui/components/Button.h"
#include "ui/components/Picker.h"
#include "ui/downloader/AddressField.h"
#include "ui/downloader/LogViewer.h"

#include <QAccessible>
#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

#include <gmock/gmock.h>

namespace clipwren::test {
namespace {

using namespace Qt::StringLiterals;

const QString addressName = u"Video address"_s;
const QString waitForever = u"exec sleep 60"_s;

class DownloaderScreenTest : public ScreenTest {
protected:
    /// What tells the cards apart, of those that are shown.
    QStringList cards() const
    {
        QStringList signs = {u"Looking up video…"_s,
                             u"Is this the right video?"_s,
                             u"Talk"_s,
                             u"Save as"_s,
                             u"Format"_s,
                             u"Trim before saving"_s,
                             u"Download"_s,
                             u"Downloading"_s,
                             u"Download complete"_s};
        signs.removeIf([this](const QString &sign) { return !shows(sign); });
        return signs;
    }
};

TEST_F(DownloaderScreenTest, showsTheCardsOfEachPhase)
{
    EXPECT_EQ(cards(), QStringList());

    m_fake.onLookup(waitForever);
    lookUp(Phase::fetching);
    EXPECT_EQ(cards(), QStringList(u"Looking up video…"_s));
    EXPECT_FALSE(field(addressName)->isEnabled());
    EXPECT_FALSE(button(u"Paste"_s)->isEnabled());
    click(u"Clear"_s);
    EXPECT_EQ(cards(), QStringList());
    EXPECT_TRUE(field(addressName)->hasFocus());
    EXPECT_TRUE(button(u"Paste"_s)->isEnabled());
    EXPECT_FALSE(button(u"Clear"_s));

    m_fake.onLookup(ScreenTest::metadata(u"\"title\":\"Talk\",\"duration\":60.5"_s));
    lookUp();
    EXPECT_EQ(cards(), QStringList({u"Is this the right video?"_s, u"Talk"_s}));
    EXPECT_TRUE(shows(u"1:01"_s));

    click(u"Continue"_s);
    EXPECT_EQ(cards(),
              QStringList(
                  {u"Talk"_s, u"Save as"_s, u"Format"_s, u"Trim before saving"_s, u"Download"_s}));

    m_fake.onDownload(u"echo '  42.9%||   1.20MiB/s||00:10'; "_s + waitForever);
    click(u"Download"_s);
    EXPECT_TRUE(waitFor([&] { return m_view.downloadProgress() > 0.4; }));
    settle();
    EXPECT_EQ(cards(), QStringList({u"Talk"_s, u"Downloading"_s}));
    EXPECT_TRUE(shows(u"42%"_s));
    EXPECT_FALSE(button(u"Clear"_s));
    EXPECT_FALSE(field(addressName)->isEnabled());

    click(u"Cancel"_s);
    EXPECT_TRUE(reaches(m_view, Phase::ready));
    m_fake.onDownload(FakeDownloader::defaultDownload());
    m_view.start();
    EXPECT_TRUE(reaches(m_view, Phase::done));
    settle();
    EXPECT_EQ(cards(), QStringList({u"Talk"_s, u"Download complete"_s}));
    EXPECT_TRUE(shows(u"Saved to ~/Movies/Clipwren"_s));
    m_fake.desktop.log.clear();
    click(u"Reveal in Finder"_s);
    m_screen.barButtons().constFirst()->click();
    EXPECT_EQ(m_fake.desktop.log, QStringList(2, u"reveal "_s + m_folder));
    click(u"New download"_s);
    EXPECT_EQ(cards(), QStringList());
    EXPECT_EQ(field(addressName)->text(), QString());
}

TEST_F(DownloaderScreenTest, announcesWhatTheFocusDoesNotTell)
{
    QWidget elsewhere;
    showWindow(elsewhere);
    getReady();
    m_fake.onDownload(u"exit 1"_s);
    m_view.start();
    EXPECT_TRUE(waitFor([&] { return m_view.errorMessage().has_value(); }));
    settle();
    enter(u"ftp://site.example"_s);
    EXPECT_EQ(
        m_fake.desktop.announcements,
        QStringList({u"Looking up video…"_s, u"Talk"_s, u"Download options"_s, u"Downloading"_s,
                     u"Download options"_s, u"Enter a valid http(s) URL"_s}));
}

TEST_F(DownloaderScreenTest, offersTheLogOnlyWhereThereIsOne)
{
    enter(u"ftp://site.example"_s);
    EXPECT_TRUE(shows(u"Enter a valid http(s) URL"_s));
    EXPECT_FALSE(button(u"View Logs"_s));

    m_fake.onLookup(u"echo '[debug] first' >&2; echo 'ERROR: gone' >&2; exit 1"_s);
    enter(u"https://site.example/1"_s);
    EXPECT_TRUE(waitFor([&] { return m_view.fetchError().has_value(); }));
    settle();
    EXPECT_FALSE(texts().contains(u"[debug]"));
    EXPECT_TRUE(texts().contains(u"ERROR: gone"));
    // What the version tells, which is read later than the window opens.
    EXPECT_FALSE(texts().contains(u"yt-dlp 2024"));
    m_fake.today = QDate(2024, 12, 1);
    m_fake.toolEnvironment->readVersions();
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return texts().contains(u"\nyt-dlp 2024.08.06 is 4 months old. A newer one"); },
        10'000));

    const auto openLog = [this] {
        click(u"View Logs"_s);
        auto *dialog = m_screen.findChild<LogViewer *>();
        EXPECT_TRUE(dialog->isVisible());
        EXPECT_TRUE(dialog->isModal());
        return dialog;
    };
    press(openLog(), Qt::Key_Escape);
    EXPECT_FALSE(m_view.showLogs());
    shown<Button>(*openLog(), u"Copy"_s)->click();
    EXPECT_TRUE(QGuiApplication::clipboard()->text().contains(u"[debug] first\n"));
    shown<Button>(*openLog(), u"Done"_s)->click();
    EXPECT_FALSE(m_view.showLogs());

    enter(u"ftp://site.example"_s);
    EXPECT_FALSE(button(u"View Logs"_s)) << "that log is of another look-up";
    EXPECT_FALSE(texts().contains(u"yt-dlp 2024"));

    m_fake.onLookup(waitForever);
    click(u"Try Again"_s);
    EXPECT_EQ(m_view.phase(), Phase::fetching);
    EXPECT_FALSE(button(u"Try Again"_s));
}

TEST_F(DownloaderScreenTest, returnLooksUpAndThenConfirms)
{
    const QString answered = m_fake.tools.path(u"answered"_s);
    m_fake.onLookup(
        u"until [ -e '%1' ]; do sleep 0.01; done; echo '{\"title\":\"Talk\"}'"_s.arg(answered));
    QLineEdit *address = field(addressName);
    address->setFocus();
    QTest::keyClicks(address, u"https://site.example/1"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(m_view.phase(), Phase::fetching);
    // One Return too many cancels nothing.
    press(Qt::Key_Return);
    EXPECT_EQ(m_view.phase(), Phase::fetching);
    EXPECT_TRUE(QFile(answered).open(QIODevice::WriteOnly));
    EXPECT_TRUE(reaches(m_view, Phase::confirming));
    settle();

    press(Qt::Key_Return);
    EXPECT_EQ(m_view.phase(), Phase::ready);
    press(Qt::Key_Return);
    EXPECT_EQ(m_view.phase(), Phase::ready);

    // In the confirmation, it presses what has the focus.
    lookUp();
    button(u"Not this one"_s)->setFocus();
    press(Qt::Key_Return);
    EXPECT_EQ(m_view.phase(), Phase::input);
    lookUp();
    m_fake.onLookup(waitForever);
    field(addressName)->setFocus();
    press(Qt::Key_Return);
    EXPECT_EQ(m_view.phase(), Phase::fetching);
}

TEST_F(DownloaderScreenTest, shortcutsWorkWhereverTheFocusIs)
{
    m_fake.desktop.clipboard = u"https://site.example/2"_s;
    press(field(addressName), Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(field(addressName)->text(), u"https://site.example/2");
    EXPECT_TRUE(reaches(m_view, Phase::confirming));
    m_view.confirm();
    settle();
    QLineEdit *title = field(u"Save as"_s);
    title->setFocus();
    m_fake.onDownload(waitForever);
    press(title, Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(m_view.phase(), Phase::downloading);
    press(&m_screen, Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(m_view.phase(), Phase::downloading);
}

TEST_F(DownloaderScreenTest, typingInTheMiddleKeepsTheCursor)
{
    getReady();
    for (const QString &name : {addressName, u"Save as"_s}) {
        QLineEdit *each = field(name);
        each->setFocus();
        each->setCursorPosition(2);
        QTest::keyClicks(each, u"xy"_s);
        settle();
        EXPECT_EQ(each->cursorPosition(), 4) << name.toStdString();
    }
    EXPECT_EQ(m_view.customTitle(), u"Taxylk");
    EXPECT_TRUE(shows(u"Final file: Taxylk [<id>].mp4"_s));
    QGuiApplication::clipboard()->setText(u"1\r\n2"_s);
    press(field(u"Save as"_s), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(field(u"Save as"_s)->text(), u"Taxy1 2lk");
    EXPECT_EQ(field(u"Save as"_s)->cursorPosition(), 7);
    click(u"Reset to the video's original title"_s);
    EXPECT_EQ(field(u"Save as"_s)->text(), u"Talk");
    EXPECT_FALSE(button(u"Reset to the video's original title"_s)->isEnabled());
}

TEST_F(DownloaderScreenTest, offersTheFormatsOfTheVideo)
{
    getReady();
    auto *picker = m_screen.findChild<Picker *>();
    const QString warning = u"This file won't play in QuickTime"_s;
    EXPECT_EQ(picker->count(), 4);
    EXPECT_EQ(picker->currentText(), m_view.selectedOption().title);
    const auto labels = QAccessible::queryAccessibleInterface(picker)->relations();
    ASSERT_EQ(labels.size(), 1) << "a screen reader says what is chosen, but not of what";
    EXPECT_EQ(labels.first().first->text(QAccessible::Name), u"Format");
    EXPECT_TRUE(shows(warning));

    picker->setFocus();
    press(Qt::Key_Down);
    EXPECT_EQ(m_view.outputFormat(), OutputFormat::macCompatible);
    EXPECT_FALSE(shows(warning));
    EXPECT_TRUE(shows(u"Trim before saving"_s));

    press(Qt::Key_End);
    EXPECT_EQ(m_view.outputFormatRaw(), u"audioMP3");
    EXPECT_FALSE(shows(u"Trim before saving"_s));
    EXPECT_TRUE(shows(u"Final file: Talk [<id>].mp3"_s));
}

TEST_F(DownloaderScreenTest, nothingIsCutOffInTheSmallestWindowNorWhyADownloadFailed)
{
    const QString word(300, u'w');
    m_fake.onLookup(ScreenTest::metadata(
        u"\"title\":\"%1 %1\",\"duration\":360000,\"uploader\":\"%1\""_s.arg(word)));
    m_fake.onDownload(u"echo '[debug] much' >&2; echo ERROR: /%1 >&2; exit 1"_s.arg(word));
    m_screen.resize(540, 468);
    settle();
    const auto *field = m_screen.findChild<AddressField *>();
    const auto check = [this, field, column = field->width()](const char *phase) {
        settle();
        EXPECT_EQ(field->width(), column) << phase << ": the scroll bar took room";
        auto *scroll = m_screen.findChild<QScrollArea *>();
        EXPECT_EQ(scroll->horizontalScrollBar()->maximum(), 0) << phase;
        const QRect pane(0, 0, scroll->viewport()->width(), 100'000);
        for (QWidget *each : scroll->widget()->findChildren<QWidget *>()) {
            const QRect place(each->mapTo(scroll->widget(), QPoint()), each->size());
            EXPECT_TRUE(!each->isVisible() || pane.contains(place))
                << phase << ' ' << each->metaObject()->className() << ' ' << place.right();
        }
    };
    enter(u"ftp://"_s + word);
    check("input");
    lookUp();
    check("confirming");
    m_view.confirm();
    m_view.setTrimEnabled(true);
    check("ready");
    m_view.start();
    EXPECT_TRUE(reaches(m_view, Phase::ready));
    check("failed");
    EXPECT_FALSE(button(u"Dismiss"_s)->visibleRegion().isEmpty());
    EXPECT_TRUE(texts().contains(u"ERROR: /"));
    EXPECT_FALSE(texts().contains(u"[debug]"));
    click(u"View Logs"_s);
    auto *dialog = m_screen.findChild<LogViewer *>();
    ASSERT_TRUE(dialog);
    EXPECT_EQ(dialog->windowTitle(), u"yt-dlp output");
    EXPECT_TRUE(dialog->findChild<QPlainTextEdit *>()->toPlainText().startsWith(u"[debug] much"));
    m_view.setShowLogs(false);
    settle();
    click(u"Dismiss"_s);
    EXPECT_FALSE(texts().contains(u"ERROR"));
}

TEST_F(DownloaderScreenTest, aNewLookupTakesAwayWhatWasSaidOfAnotherVideo)
{
    m_fake.onDownload(u"echo 'ERROR: gone' >&2; exit 1"_s);
    getReady();
    m_view.start();
    EXPECT_TRUE(reaches(m_view, Phase::ready));
    m_fake.today = QDate(2024, 12, 1);
    m_fake.toolEnvironment->readVersions();
    EXPECT_TRUE(waitFor([&] { return texts().contains(u"4 months old"); }));
    click(u"View Logs"_s);
    EXPECT_TRUE(m_screen.findChild<LogViewer *>()->isVisible());
    m_fake.onLookup(waitForever);
    lookUp(Phase::fetching);
    EXPECT_FALSE(texts().contains(u"ERROR"));
    for (const LogViewer *dialog : m_screen.findChildren<LogViewer *>())
        EXPECT_FALSE(dialog->isVisible());
}

} // namespace
} // namespace clipwren::test
