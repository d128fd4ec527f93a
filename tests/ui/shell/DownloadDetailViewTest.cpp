#include "ui/shell/DownloadDetailView.h"

#include "support/ScriptedPlayer.h"
#include "ui/player/SafeVideoPlayer.h"
#include "ui/shell/InformationBox.h"
#include "ui/shell/ShellFixture.h"

#include <QFile>
#include <QRegularExpression>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>

namespace clipwren::test {
namespace {

using namespace Qt::StringLiterals;

class DownloadDetailViewTest : public ShellFixture {
protected:
    DownloadDetailViewTest() { onProbe(u"Talk"_s, u"h264"_s); }

    /// What ffprobe finds in files whose path has `part` in it, after `first` ran; others fail.
    void onProbe(const QString &part, const QString &codec, const QString &first = {})
    {
        m_cases +=
            u"*'%1'*) %2; echo '{\"streams\": [{\"codec_type\": \"video\", "
            "\"codec_name\": \"%3\"}]}';;\n"_s.arg(part, first.isEmpty() ? u":"_s : first, codec);
        tools.add(u"ffprobe"_s,
                  u"for path in \"$@\"; do :; done\ncase \"$path\" in\n%1"
                  "*) echo 'bad file' >&2; exit 1;;\nesac"_s.arg(m_cases));
    }

    DownloadDetailView &show(const DownloadRecord &record)
    {
        m_view = std::make_unique<DownloadDetailView>(record, environment, desktop, [this] {
            auto made = std::make_unique<ScriptedPlayer>(playerLog);
            player = made.get();
            return made;
        });
        m_view->resize(840, 848);
        showWindow(*m_view);
        return *m_view;
    }

    /// The text of the pill; empty without one.
    static QString verdict(const DownloadDetailView &view)
    {
        auto *pill = view.findChild<Pill *>();
        return pill->isVisible() ? nameOf(*pill) : QString();
    }
    static bool showsCodec(const DownloadDetailView &view, const QString &codec)
    {
        return QTest::qWaitFor([&] { return shows(view, codec); });
    }
    /// What the player was told to play, in order.
    QStringList loaded() const { return playerLog.filter(QRegularExpression(u"^load "_s)); }
    static QString loadOf(const DownloadRecord &record)
    {
        return u"load "_s + QUrl::fromLocalFile(record.filePath).toString();
    }

    QStringList playerLog;
    ScriptedPlayer *player = nullptr;

private:
    QString m_cases;
    std::unique_ptr<DownloadDetailView> m_view;
};

TEST_F(DownloadDetailViewTest, showsPlayerFactsAndVerdictOfAFile)
{
    const DownloadRecord record = addRecord(u"Talk"_s);
    const auto &view = show(record);
    ASSERT_TRUE(showsCodec(view, u"H.264"_s));
    EXPECT_EQ(verdict(view), u"Plays in QuickTime"_s);
    EXPECT_EQ(loaded(), QStringList{loadOf(record)});
    EXPECT_EQ(view.findChild<SafeVideoPlayer *>()->size(), QSize(704, 320));
    EXPECT_TRUE(shows(view, record.sourceURL));
    EXPECT_TRUE(shows(view, folder()));

    for (Button *button : view.barButtons())
        button->click();
    buttonIn(view, u"Reveal in Finder"_s)->click();
    EXPECT_EQ(desktop.log,
              (QStringList{u"reveal "_s + record.filePath, u"open "_s + record.filePath,
                           u"reveal "_s + record.filePath}));
}

TEST_F(DownloadDetailViewTest, saysThatTheFileHasGoneAndNoticesItBackWithTheWindow)
{
    const QString gone = u"File no longer at expected location"_s;
    auto &view = show(addRecord(u"Talk"_s, false));
    EXPECT_TRUE(shows(view, gone));
    EXPECT_EQ(player, nullptr);
    EXPECT_FALSE(buttonIn(view, u"Reveal in Finder"_s)->isEnabled());
    for (const Button *button : view.barButtons())
        EXPECT_FALSE(button->isEnabled());
    EXPECT_TRUE(shows(view, u"MPEG-4 movie"_s));
    EXPECT_FALSE(shows(view, u"Size"_s));
    EXPECT_EQ(tools.runCount(u"ffprobe"_s), 0);

    writeFile(u"Talk.mp4"_s, "film");
    QEvent activation(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&view, &activation);
    EXPECT_FALSE(shows(view, gone));
    ASSERT_TRUE(showsCodec(view, u"H.264"_s));

    QFile::remove(path(u"Talk.mp4"_s));
    QCoreApplication::sendEvent(&view, &activation);
    EXPECT_TRUE(shows(view, gone));
    EXPECT_FALSE(view.findChild<SafeVideoPlayer *>()->isVisible());
    EXPECT_EQ(verdict(view), QString());
}

TEST_F(DownloadDetailViewTest, saysWhyAFileCannotBeRead)
{
    const auto &view = show(addRecord(u"Broken"_s));
    const QString message = u"Couldn't read file info: Process failed (exit 1): bad file"_s;
    EXPECT_TRUE(QTest::qWaitFor([&] { return shows(view, message); }));
    EXPECT_TRUE(shows(view, u"MPEG-4 movie"_s));

    onProbe(u"Flood"_s, {}, u"head -c 1000000 /dev/zero | tr '\\0' x >&2; exit 1"_s);
    auto &flooded = show(addRecord(u"Flood"_s));
    const auto errors = [&] { return shownTexts(flooded).filter(u"Couldn't read file info: "_s); };
    ASSERT_TRUE(QTest::qWaitFor([&] { return !errors().isEmpty(); }));
    EXPECT_LT(errors().constFirst().size(), 5'000) << "the beginning will do";
}

TEST_F(DownloadDetailViewTest, neverShowsAnInspectionOfAnotherFile)
{
    const QString go = path(u"go"_s);
    const QString wait = u"while [ ! -e '%1' ]; do sleep 0.01; done"_s;
    onProbe(u"Slow"_s, u"vp9"_s, wait.arg(go));
    const DownloadRecord next = addRecord(u"Talk"_s);
    auto &view = show(addRecord(u"Slow"_s));
    view.setRecord(next);
    writeFile(u"go"_s, {});
    ASSERT_TRUE(showsCodec(view, u"H.264"_s));
    EXPECT_TRUE(BackgroundTask::waitForAll(std::chrono::seconds(10)));
    QCoreApplication::processEvents();
    EXPECT_TRUE(shows(view, u"H.264"_s));
    EXPECT_EQ(loaded().constLast(), loadOf(next));
}

TEST_F(DownloadDetailViewTest, followsAReencodedRecord)
{
    onProbe(u"Film — QT"_s, u"h264"_s);
    onProbe(u"Film"_s, u"vp9"_s);
    const DownloadRecord other = addRecord(u"Other"_s, false);
    DownloadRecord record = addRecord(u"Film"_s);
    auto &view = show(record);
    ASSERT_TRUE(showsCodec(view, u"VP9"_s));
    view.resize(500, 300);
    auto *bar = view.findChild<QScrollArea *>()->verticalScrollBar();
    ASSERT_TRUE(QTest::qWaitFor([&] { return bar->maximum() > 50; }));
    bar->setValue(50);
    EXPECT_EQ(verdict(view), u"Needs VLC or IINA"_s);

    record.filePath = path(u"Film — QT.mp4"_s);
    writeFile(u"Film — QT.mp4"_s, "film");
    view.setRecord(record);
    EXPECT_FALSE(shows(view, u"VP9"_s));
    EXPECT_EQ(loaded().constLast(), loadOf(record));
    EXPECT_TRUE(showsCodec(view, u"H.264"_s));
    EXPECT_EQ(bar->value(), 50);
    view.setRecord(other);
    EXPECT_EQ(bar->value(), 0) << "another record shows from its top";
}

TEST_F(DownloadDetailViewTest, inspectsOnceWhileTheFileStaysOnScreen)
{
    DownloadRecord record = addRecord(u"Talk"_s);
    auto &view = show(record);
    ASSERT_TRUE(showsCodec(view, u"H.264"_s));
    const QSignalSpy titles(&view, &DetailScreen::titleChanged);
    record.title = u"New title"_s;
    view.setRecord(record);
    EXPECT_TRUE(shows(view, u"H.264"_s));
    EXPECT_TRUE(shows(view, u"New title"_s));
    EXPECT_EQ(view.barTitle(), u"New title");
    EXPECT_EQ(titles.size(), 1);
    EXPECT_EQ(tools.runCount(u"ffprobe"_s), 1);
    EXPECT_EQ(loaded().size(), 1);

    view.hide();
    view.show();
    EXPECT_EQ(verdict(view), QString());
    EXPECT_TRUE(showsCodec(view, u"H.264"_s));
    EXPECT_EQ(tools.runCount(u"ffprobe"_s), 2);
}

TEST_F(DownloadDetailViewTest, showsOnlyTheRecordWithoutTools)
{
    QFile::remove(tools.path(u"ffmpeg"_s));
    environment.refresh();
    const auto &view = show(addRecord(u"Talk"_s));
    EXPECT_TRUE(BackgroundTask::waitForAll(std::chrono::seconds(10)));
    EXPECT_EQ(tools.runCount(u"ffprobe"_s), 0);
    EXPECT_TRUE(shows(view, u"0 KB"_s)) << "which the disk knows";
}

} // namespace
} // namespace clipwren::test
