#include "Gallery.h"
#include "support/ScriptedPlayer.h"
#include "ui/components/Theme.h"
#include "ui/player/PlayerControls.h"
#include "ui/player/PlayerPane.h"

#include <QPainter>
#include <QRadialGradient>
#include <QVBoxLayout>

namespace clipwren::gallery {

namespace {

using FullScreen = PlayerControls::FullScreen;

/// Something like a picture of a video, with the controls where a pane has them.
class Still : public QWidget {
public:
    Still(QSize size, FullScreen fullScreen, test::ScriptedPlayer *player)
    {
        setFixedSize(size);
        player->setParent(this);
        auto *const controls = new PlayerControls(fullScreen, this);
        controls->setPlayer(player);
        const QSize bar(PlayerControls::widthOver(size.width()), controls->sizeHint().height());
        controls->setGeometry(
            QRect({(size.width() - bar.width()) / 2, size.height() - bar.height() - 14}, bar));
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        QRadialGradient light(QPointF(rect().center()) + QPointF(0, 30), width() * 0.4);
        light.setColorAt(0, QColor(0x30, 0x50, 0x70));
        light.setColorAt(1, QColor(0x0a, 0x0f, 0x18));
        painter.setBrush(light);
        painter.setPen(Qt::NoPen);
        painter.drawRoundedRect(rect(), 14, 14);
    }
};

test::ScriptedPlayer *playerAt(double seconds, double duration)
{
    static QStringList log;
    auto *const player = new test::ScriptedPlayer(log);
    player->load(QUrl(QStringLiteral("https://video.example/tide-clock.mp4")));
    player->setDuration(duration);
    player->becomeReady();
    player->seek(seconds, {});
    return player;
}

QWidget *failedPane()
{
    auto *const pane = new PlayerPane({.fullScreen = FullScreen::CanEnter, .radius = 14});
    auto *const player = playerAt(0, 10);
    player->setParent(pane);
    player->fail(QStringLiteral("The file does not exist."));
    pane->setPlayer(player);
    pane->setFixedSize(484, 220);
    return pane;
}

} // namespace

QWidget *videoPage()
{
    auto *const page = new QWidget;
    auto *const column = new QVBoxLayout(page);
    column->setContentsMargins(28, 28, 28, 28);
    column->setSpacing(20);
    auto *const playing = playerAt(3725, 5000);
    playing->play();
    auto *const silent = playerAt(7, 12);
    silent->setMuted(true);
    column->addWidget(new Still({704, 320}, FullScreen::CanEnter, playerAt(41, 287)));
    column->addWidget(new Still({484, 220}, FullScreen::None, playing));
    column->addWidget(new Still({260, 120}, FullScreen::CanLeave, silent));
    column->addWidget(failedPane());
    return page;
}

} // namespace clipwren::gallery
