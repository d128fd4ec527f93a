#include "ui/shell/DownloadDetailView.h"

#include "ui/components/Pill.h"
#include "ui/shell/ShellFixture.h"

#include <QAccessible>
#include <QFile>
#include <QSignalSpy>

namespace clipwren::test {
namespace {

class RecordingPlayer : public VideoPlayerView {
public:
    using VideoPlayerView::VideoPlayerView;
    void setUrl(const QUrl &url) override
    {
        if (urls.isEmpty() || urls.constLast() != url)
            urls << url;
    }
    QList<QUrl> urls;
};

class DownloadDetailViewTest : public ShellFixture {
protected:
    DownloadDetailViewTest() { onProbe(QStringLiteral("Talk"), QStringLiteral("h264")); }

    /// What ffprobe finds in files whose path has `part` in it, after `first` ran; others fail.
    void onProbe(const QString &part, const QString &codec, const QString &first = {})
    {
        m_cases += QStringLiteral("*'%1'*) %2; echo '{\"streams\": [{\"codec_type\": \"video\", "
                                  "\"codec_name\": \"%3\"}]}';;\n")
                       .arg(part, first.isEmpty() ? QStringLiteral(":") : first, codec);
        tools.add(QStringLiteral("ffprobe"),
                  QStringLiteral("for path in \"$@\"; do :; done\ncase \"$path\" in\n%1"
                                 "*) echo 'bad file' >&2; exit 1;;\nesac")
                      .arg(m_cases));
    }

    DownloadDetailView &show(const DownloadRecord &record)
    {
        m_view = std::make_unique<DownloadDetailView>(record, environment, desktop,
                                                      [this](QWidget *parent) {
                                                          player = new RecordingPlayer(parent);
                                                          return player;
                                                      });
        m_view->resize(840, 848);
        showWindow(*m_view);
        return *m_view;
    }

    /// The text of the pill; empty without one.
    static QString verdict(const DownloadDetailView &view)
    {
        auto *pill = view.findChild<Pill *>();
        return pill->isVisible()
            ? QAccessible::queryAccessibleInterface(pill)->text(QAccessible::Name)
            : QString();
    }
    static bool showsCodec(const DownloadDetailView &view, const QString &codec)
    {
        return QTest::qWaitFor([&] { return shows(view, codec); });
    }
    static QUrl urlOf(const DownloadRecord &record) { return QUrl::fromLocalFile(record.filePath); }

    RecordingPlayer *player = nullptr;

private:
    QString m_cases;
    std::unique_ptr<DownloadDetailView> m_view;
};

TEST_F(DownloadDetailViewTest, showsPlayerFactsAndVerdictOfAFile)
{
    const DownloadRecord record = addRecord(QStringLiteral("Talk"));
    const auto &view = show(record);
    ASSERT_TRUE(showsCodec(view, QStringLiteral("H.264")));
    EXPECT_EQ(verdict(view), QStringLiteral("Plays in QuickTime"));
    EXPECT_EQ(player->urls, QList<QUrl>{urlOf(record)});
    EXPECT_EQ(player->size(), QSize(704, 320));
    EXPECT_TRUE(shows(view, record.sourceURL));
    EXPECT_TRUE(shows(view, folder()));

    for (Button *button : view.barButtons())
        button->click();
    buttonIn(view, QStringLiteral("Reveal in Finder"))->click();
    EXPECT_EQ(desktop.log,
              (QStringList{QStringLiteral("reveal ") + record.filePath,
                           QStringLiteral("open ") + record.filePath,
                           QStringLiteral("reveal ") + record.filePath}));
}

TEST_F(DownloadDetailViewTest, saysThatTheFileHasGone)
{
    const auto &view = show(addRecord(QStringLiteral("Talk"), false));
    EXPECT_TRUE(shows(view, QStringLiteral("File no longer at expected location")));
    EXPECT_EQ(player, nullptr);
    EXPECT_FALSE(buttonIn(view, QStringLiteral("Reveal in Finder"))->isEnabled());
    for (const Button *button : view.barButtons())
        EXPECT_FALSE(button->isEnabled());
    EXPECT_EQ(verdict(view), QString());
    EXPECT_TRUE(shows(view, QStringLiteral("MPEG-4 movie")));
    EXPECT_FALSE(shows(view, QStringLiteral("Size")));
    EXPECT_EQ(tools.runCount(QStringLiteral("ffprobe")), 0);
}

TEST_F(DownloadDetailViewTest, noticesAFileThatIsBackWithTheWindow)
{
    auto &view = show(addRecord(QStringLiteral("Talk"), false));
    writeFile(QStringLiteral("Talk.mp4"), "film");
    QEvent activation(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&view, &activation);
    EXPECT_FALSE(shows(view, QStringLiteral("File no longer at expected location")));
    EXPECT_TRUE(showsCodec(view, QStringLiteral("H.264")));

    QFile::remove(path(QStringLiteral("Talk.mp4")));
    QCoreApplication::sendEvent(&view, &activation);
    EXPECT_TRUE(shows(view, QStringLiteral("File no longer at expected location")));
    EXPECT_FALSE(player->isVisible());
    EXPECT_TRUE(player->urls.constLast().isEmpty());
    EXPECT_EQ(verdict(view), QString());
}

TEST_F(DownloadDetailViewTest, saysWhyTheFileCannotBeRead)
{
    const auto &view = show(addRecord(QStringLiteral("Broken")));
    const QString message =
        QStringLiteral("Couldn't read file info: Process failed (exit 1): bad file");
    EXPECT_TRUE(QTest::qWaitFor([&] { return shows(view, message); }));
    EXPECT_TRUE(shows(view, QStringLiteral("MPEG-4 movie")));
}

TEST_F(DownloadDetailViewTest, neverShowsAnInspectionOfAnotherFile)
{
    const QString go = path(QStringLiteral("go"));
    const QString wait = QStringLiteral("while [ ! -e '%1' ]; do sleep 0.01; done");
    onProbe(QStringLiteral("Slow"), QStringLiteral("vp9"), wait.arg(go));
    const DownloadRecord next = addRecord(QStringLiteral("Talk"));
    auto &view = show(addRecord(QStringLiteral("Slow")));
    view.setRecord(next);
    writeFile(QStringLiteral("go"), {});
    ASSERT_TRUE(showsCodec(view, QStringLiteral("H.264")));
    EXPECT_TRUE(BackgroundTask::waitForAll(std::chrono::seconds(10)));
    QCoreApplication::processEvents();
    EXPECT_TRUE(shows(view, QStringLiteral("H.264")));
    EXPECT_EQ(player->urls.constLast(), urlOf(next));
}

TEST_F(DownloadDetailViewTest, followsAReencodedRecord)
{
    onProbe(QStringLiteral("Film — QT"), QStringLiteral("h264"));
    onProbe(QStringLiteral("Film"), QStringLiteral("vp9"));
    DownloadRecord record = addRecord(QStringLiteral("Film"));
    auto &view = show(record);
    ASSERT_TRUE(showsCodec(view, QStringLiteral("VP9")));
    EXPECT_EQ(verdict(view), QStringLiteral("Needs VLC or IINA"));

    record.filePath = path(QStringLiteral("Film — QT.mp4"));
    writeFile(QStringLiteral("Film — QT.mp4"), "film");
    view.setRecord(record);
    EXPECT_FALSE(shows(view, QStringLiteral("VP9")));
    EXPECT_EQ(player->urls.constLast(), urlOf(record));
    EXPECT_TRUE(showsCodec(view, QStringLiteral("H.264")));
}

TEST_F(DownloadDetailViewTest, keepsTheInspectionWhileTheFileStays)
{
    DownloadRecord record = addRecord(QStringLiteral("Talk"));
    auto &view = show(record);
    ASSERT_TRUE(showsCodec(view, QStringLiteral("H.264")));
    const QSignalSpy titles(&view, &DetailScreen::barTitleChanged);
    record.title = QStringLiteral("New title");
    view.setRecord(record);
    EXPECT_TRUE(shows(view, QStringLiteral("H.264")));
    EXPECT_TRUE(shows(view, QStringLiteral("New title")));
    EXPECT_EQ(view.barTitle(), QStringLiteral("New title"));
    EXPECT_EQ(titles.size(), 1);
    EXPECT_EQ(tools.runCount(QStringLiteral("ffprobe")), 1);
    EXPECT_EQ(player->urls.size(), 1);
}

TEST_F(DownloadDetailViewTest, inspectsEachTimeItComesOnScreen)
{
    auto &view = show(addRecord(QStringLiteral("Talk")));
    ASSERT_TRUE(showsCodec(view, QStringLiteral("H.264")));
    view.hide();
    view.show();
    EXPECT_EQ(verdict(view), QString());
    EXPECT_TRUE(showsCodec(view, QStringLiteral("H.264")));
    EXPECT_EQ(tools.runCount(QStringLiteral("ffprobe")), 2);
}

TEST_F(DownloadDetailViewTest, showsOnlyTheRecordWithoutTools)
{
    QFile::remove(tools.path(QStringLiteral("ffmpeg")));
    environment.refresh();
    const auto &view = show(addRecord(QStringLiteral("Talk")));
    EXPECT_TRUE(BackgroundTask::waitForAll(std::chrono::seconds(10)));
    EXPECT_EQ(tools.runCount(QStringLiteral("ffprobe")), 0);
    EXPECT_TRUE(shows(view, QStringLiteral("Size")));
}

} // namespace
} // namespace clipwren::test
