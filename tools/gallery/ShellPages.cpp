#include "ShellPages.h"

#include "core/library/DownloadStore.h"
#include "core/library/HistoryStore.h"
#include "core/process/ToolEnvironment.h"
#include "platform/desktop/SilentDesktop.h"
#include "support/FakeTool.h"
#include "ui/components/Button.h"
#include "ui/components/ConfirmationDialog.h"
#include "ui/components/Divider.h"
#include "ui/components/Label.h"
#include "ui/shell/DownloadDetailView.h"
#include "ui/shell/SetupView.h"
#include "ui/shell/SidebarView.h"

#include <QFile>
#include <QHBoxLayout>
#include <QJsonArray>
#include <QJsonDocument>
#include <QPainter>
#include <QTemporaryDir>

#include <memory>

namespace clipwren::gallery {

namespace {

/// Where a film would be.
class StillPlayer : public VideoPlayerView {
public:
    using VideoPlayerView::VideoPlayerView;
    void setUrl(const QUrl &) override { }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(0x16, 0x24, 0x33));
        painter.drawRoundedRect(rect(), radius, radius);
    }
};

enum class Tools { All, WithoutYtDlp };

/// A window without its splitter, and all that its views need.
class Stage : public QWidget {
public:
    explicit Stage(Tools which, bool withVideos = true)
    {
        setFixedSize(1120, 900);
        addTools(which);
        if (withVideos) {
            addVideo(QStringLiteral("Field recording: harbour at dawn, first part"), 14 * 24);
            addVideo(QStringLiteral("Talk — how indexes really work in practice"), 3 * 24, false);
            addVideo(QStringLiteral("Night trains across the north"), 25);
            addVideo(QStringLiteral("Building a tide clock from scratch"), 2);
            writeHistory();
        }
        history = std::make_unique<HistoryStore>(folder.path());
    }
    // The views go before what they show.
    ~Stage() override { qDeleteAll(findChildren<QWidget *>(Qt::FindDirectChildrenOnly)); }

    void build(SidebarView *sidebar, DetailScreen *screen)
    {
        sidebar->setFixedWidth(279);
        auto *bar = new QHBoxLayout;
        bar->setContentsMargins(54, 0, 16, 0);
        bar->addWidget(
            new Label(Theme::TextStyle::BarTitle, Theme::Color::Text, screen->barTitle()));
        bar->addStretch(1);
        for (Button *button : screen->barButtons())
            bar->addWidget(button);
        bar->addStrut(51);
        auto *pane = new QVBoxLayout;
        pane->setSpacing(0);
        pane->addLayout(bar);
        pane->addWidget(new Divider);
        pane->addWidget(screen, 1);
        auto *columns = new QHBoxLayout(this);
        columns->setContentsMargins(0, 0, 0, 0);
        columns->setSpacing(1);
        columns->addWidget(sidebar);
        columns->addLayout(pane, 1);
    }

    SidebarView *makeSidebar() { return new SidebarView(store, *history, *environment, desktop); }
    DownloadDetailView *makeDetail(const DownloadRecord &record)
    {
        return new DownloadDetailView(record, *environment, desktop,
                                      [](QWidget *parent) { return new StillPlayer(parent); });
    }

    QTemporaryDir folder;
    test::FakeTools tools;
    SilentDesktop desktop;
    DownloadStore store{folder.path()};
    std::unique_ptr<HistoryStore> history;
    std::unique_ptr<ToolEnvironment> environment;

private:
    void addTools(Tools which)
    {
        if (which == Tools::All)
            tools.add(QStringLiteral("yt-dlp"), QStringLiteral("echo 2026.11.01"));
        tools.add(QStringLiteral("ffmpeg"), QStringLiteral("echo 'ffmpeg version 7.0.1'"));
        tools.add(QStringLiteral("ffprobe"), QStringLiteral(R"(echo '{
            "format": {"size": "48200000", "duration": "286.9", "bit_rate": "1344000",
                       "format_name": "mov,mp4,m4a,3gp,3g2,mj2"},
            "streams": [
                {"codec_type": "video", "codec_name": "h264", "width": 1920, "height": 1080,
                 "r_frame_rate": "30000/1001"},
                {"codec_type": "audio", "codec_name": "aac"}]}')"));
        environment = std::make_unique<ToolEnvironment>(QStringList{tools.directory()});
    }

    void addVideo(const QString &title, int hoursAgo, bool withFile = true)
    {
        DownloadRecord record;
        record.id = QUuid::createUuid();
        record.title = title;
        record.sourceURL = QStringLiteral("https://video.example/watch?v=tide-clock-01");
        record.filePath = folder.filePath(title + QStringLiteral(" — trimmed.mp4"));
        record.durationSeconds = 754;
        record.trimStart = 188;
        record.trimEnd = 475;
        record.createdAt = QDateTime::currentDateTimeUtc().addSecs(-3600LL * hoursAgo);
        QFile file(record.filePath);
        if (withFile && !file.open(QIODevice::WriteOnly))
            qFatal("cannot write a file of the gallery");
        store.add(record);
    }

    void writeHistory() const
    {
        QJsonArray entries;
        qint64 count = 3;
        for (const DownloadRecord &record : store.records().mid(0, 3)) {
            entries << HistoryEntry{.id = record.id,
                                    .title = record.title,
                                    .url = record.sourceURL,
                                    .thumbnailURL = {},
                                    .durationSeconds = {},
                                    .firstDownloadedAt = record.createdAt,
                                    .lastDownloadedAt = record.createdAt,
                                    .downloadCount = count--}
                           .toJson();
        }
        QFile file(folder.filePath(QStringLiteral("history.json")));
        if (!file.open(QIODevice::WriteOnly))
            qFatal("cannot write the history of the gallery");
        file.write(QJsonDocument(entries).toJson());
    }
};

QWidget *recordPage(qsizetype index)
{
    auto *stage = new Stage(Tools::All);
    auto *sidebar = stage->makeSidebar();
    const DownloadRecord record = stage->store.records().at(index);
    sidebar->setSelection(record.id);
    stage->build(sidebar, stage->makeDetail(record));
    return stage;
}

} // namespace

QWidget *setupPage()
{
    auto *stage = new Stage(Tools::WithoutYtDlp);
    stage->build(stage->makeSidebar(), new SetupView(*stage->environment, stage->desktop));
    return stage;
}

QWidget *detailPage()
{
    return recordPage(0);
}

QWidget *missingFilePage()
{
    return recordPage(2);
}

QWidget *historyPage()
{
    auto *stage = new Stage(Tools::WithoutYtDlp);
    auto *sidebar = stage->makeSidebar();
    sidebar->setTab(SidebarView::Tab::history);
    stage->build(sidebar, new SetupView(*stage->environment, stage->desktop));
    return stage;
}

QWidget *emptyPage()
{
    auto *stage = new Stage(Tools::WithoutYtDlp, false);
    stage->build(stage->makeSidebar(), new SetupView(*stage->environment, stage->desktop));
    return stage;
}

QWidget *confirmationPage()
{
    auto *dialog = new ConfirmationDialog(QStringLiteral("Clear Recents?"),
                                          QStringLiteral("Clear Recents"), nullptr);
    dialog->setAttribute(Qt::WA_DeleteOnClose, false);
    dialog->setMessage(
        QStringLiteral("Removes 3 items from this list. Downloaded files are not deleted, and "
                       "History is preserved."));
    return dialog;
}

} // namespace clipwren::gallery
