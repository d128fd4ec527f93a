#include "ui/player/PlayerControls.h"

#include "core/text/Duration.h"
#include "ui/components/Button.h"
#include "ui/components/FocusRing.h"
#include "ui/components/Label.h"
#include "ui/components/Painting.h"
#include "ui/components/TextLine.h"
#include "ui/player/ThinSlider.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace clipwren {

namespace {

constexpr int barHeight = 36;
constexpr double barRadius = 10;
constexpr int sidePadding = 12;
constexpr int spacing = 10;
constexpr int volumeWidth = 64;

constexpr double skipSeconds = 5;
constexpr double pageSeconds = 30;
constexpr double volumeStep = 0.05;
constexpr double volumePage = 0.2;
// After unmuting a player whose volume is 0.
constexpr double audibleVolume = 0.5;
// Playing from here on would start again at 0.
constexpr double endToleranceSeconds = 0.25;

constexpr Slider::Unit inMilliseconds{1000, formatDuration};
constexpr Slider::Unit inPercent{
    100, [](double volume) { return PlayerControls::tr("%1 %").arg(std::lround(volume * 100)); }};

void describe(Button &button, Icon icon, const QString &name)
{
    button.setSymbol(icon);
    if (button.toolTip() == name)
        return;
    button.setToolTip(name);
    button.setAccessibleName(name);
}

} // namespace

/// A running time that can be clicked. Its digits stand still.
class TimeButton : public QAbstractButton {
public:
    TimeButton()
    {
        Theme::setTextStyle(*this, Theme::TextStyle::CaptionDigits);
        setFocusPolicy(Qt::TabFocus);
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        FocusRing::install(this, 4);
    }

    /// Keeps at least the room of `longest`, so that nothing moves as time goes by.
    void setTime(const QString &time, const QString &longest)
    {
        if (time != text())
            setText(time);
        const double room =
            std::max(DigitText(longest, font()).width(), DigitText(time, font()).width());
        if (std::exchange(m_room, room) != room)
            updateGeometry();
    }

    QSize sizeHint() const override
    {
        return {static_cast<int>(std::ceil(m_room)), fontMetrics().height()};
    }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *) override
    {
        const DigitText time(text(), font());
        QPainter painter(this);
        painter.setPen(Theme::current().color(Theme::Color::OnVideo));
        time.paint(painter,
                   {width() - time.width(),
                    (height() - fontMetrics().height()) / 2.0 + fontMetrics().ascent()});
    }

private:
    double m_room = 0;
};

PlayerControls::PlayerControls(FullScreen fullScreen, QWidget *parent)
    : QWidget(parent), m_fullScreen(fullScreen), m_play(addButton(u"play.fill")),
      m_elapsed(new Label(Theme::TextStyle::CaptionDigits, Theme::Color::OnVideo)),
      m_position(new ThinSlider(tr("Position"), inMilliseconds)), m_end(new TimeButton),
      m_mute(addButton(u"speaker.wave.2.fill")), m_volume(new ThinSlider(tr("Volume"), inPercent)),
      m_toggleFullScreen(addButton(u"arrow.up.left.and.arrow.down.right"))
{
    // Time runs to the right in every language, and all players look like this.
    setLayoutDirection(Qt::LeftToRight);
    setAccessibleName(tr("Player controls"));
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(sidePadding, 0, sidePadding, 0);
    row->setSpacing(spacing);
    QWidget *before = m_play;
    for (QWidget *part : std::initializer_list<QWidget *>{m_play, m_elapsed, m_position, m_end,
                                                          m_mute, m_volume, m_toggleFullScreen}) {
        row->addWidget(part, part == m_position ? 1 : 0, Qt::AlignVCenter);
        setTabOrder(before, part);
        before = part;
    }
    m_elapsed->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_position->setSteps(skipSeconds, pageSeconds);
    m_volume->setFixedWidth(volumeWidth);
    m_volume->setSteps(volumeStep, volumePage);
    m_volume->setLargestValue(1);
    m_toggleFullScreen->setVisible(m_fullScreen != FullScreen::None);
    if (m_fullScreen == FullScreen::CanEnter)
        describe(*m_toggleFullScreen, u"arrow.up.left.and.arrow.down.right", tr("Full Screen"));
    else
        describe(*m_toggleFullScreen, u"arrow.down.right.and.arrow.up.left",
                 tr("Leave Full Screen"));

    connect(m_play, &Button::clicked, this, &PlayerControls::togglePlaying);
    connect(m_position, &ThinSlider::sliderPressed, this, [this] {
        m_resumeAfterSeek = m_player->isPlaying();
        m_player->pause();
    });
    connect(m_position, &ThinSlider::valueRequested, this, &PlayerControls::seek);
    connect(m_position, &ThinSlider::sliderReleased, this, &PlayerControls::endDrag);
    connect(m_end, &TimeButton::clicked, this, [this] {
        m_showsTimeLeft = !m_showsTimeLeft;
        renderTimes();
    });
    connect(m_mute, &Button::clicked, this, &PlayerControls::toggleMuted);
    connect(m_volume, &ThinSlider::valueRequested, this, &PlayerControls::setVolume);
    connect(m_toggleFullScreen, &Button::clicked, this, &PlayerControls::fullScreenToggled);
    setEnabled(false);
}

Button *PlayerControls::addButton(Icon icon)
{
    Button *const button = Button::iconOnly(icon, {}, this);
    button->setSize(Button::Size::Small);
    button->setTint(Theme::Color::OnVideo);
    // Clicks leave the focus, and so the keys, with the video.
    button->setFocusPolicy(Qt::TabFocus);
    button->installEventFilter(this);
    return button;
}

void PlayerControls::setPlayer(MediaPlayer *player)
{
    if (m_player)
        m_player->disconnect(this);
    m_resumeAfterSeek = false;
    m_position->cancelDrag();
    m_player = player;
    setEnabled(player != nullptr);
    if (!player)
        return;
    connect(player, &QObject::destroyed, this, [this] { setPlayer(nullptr); });
    connect(player, &MediaPlayer::statusChanged, this, &PlayerControls::render);
    connect(player, &MediaPlayer::playingChanged, this, &PlayerControls::render);
    connect(player, &MediaPlayer::positionChanged, this, &PlayerControls::renderTimes);
    connect(player, &MediaPlayer::durationChanged, this, &PlayerControls::render);
    connect(player, &MediaPlayer::volumeChanged, this, &PlayerControls::renderVolume);
    render();
}

bool PlayerControls::pressKey(int key, bool repeated)
{
    if (!m_player)
        return false;
    switch (key) {
    case Qt::Key_Left:
        seek(m_player->positionSeconds() - skipSeconds);
        return true;
    case Qt::Key_Right:
        seek(m_player->positionSeconds() + skipSeconds);
        return true;
    case Qt::Key_Up:
        setVolume(m_player->volume() + volumeStep);
        return true;
    case Qt::Key_Down:
        setVolume(m_player->volume() - volumeStep);
        return true;
    case Qt::Key_Space:
        if (!repeated)
            togglePlaying();
        return true;
    case Qt::Key_M:
        if (!repeated)
            toggleMuted();
        return true;
    case Qt::Key_F:
    case Qt::Key_Escape:
        if (m_fullScreen == FullScreen::None
            || (key == Qt::Key_Escape && m_fullScreen == FullScreen::CanEnter))
            return false;
        if (!repeated)
            Q_EMIT fullScreenToggled();
        return true;
    default:
        return false;
    }
}

bool PlayerControls::willPlay() const
{
    return m_resumeAfterSeek || m_player->isPlaying();
}

void PlayerControls::togglePlaying()
{
    if (m_player->isPlaying())
        m_player->pause();
    else
        m_player->play();
}

void PlayerControls::seek(double seconds)
{
    // A seek by the user ends the playing of a range.
    Q_EMIT jumped();
    m_player->setEndTime(std::nullopt);
    m_player->seek(std::max(seconds, 0.0), {});
}

void PlayerControls::endDrag()
{
    if (!std::exchange(m_resumeAfterSeek, false) || !m_player)
        return;
    const bool atEnd = m_player->positionSeconds()
        >= m_player->durationSeconds().value_or(0) - endToleranceSeconds;
    if (!atEnd)
        m_player->play();
    render();
}

void PlayerControls::toggleMuted()
{
    const bool wasSilent = m_player->isMuted() || m_player->volume() <= 0;
    if (wasSilent && m_player->volume() <= 0)
        m_player->setVolume(audibleVolume);
    m_player->setMuted(!wasSilent);
}

void PlayerControls::setVolume(double volume)
{
    m_player->setMuted(false);
    // Whole steps of a hundredth, so that repeated keys come to exactly 0 and 1.
    m_player->setVolume(std::clamp(std::round(volume * 100) / 100, 0.0, 1.0));
}

void PlayerControls::render()
{
    if (willPlay())
        describe(*m_play, u"pause.fill", tr("Pause"));
    else
        describe(*m_play, u"play.fill", tr("Play"));
    m_position->setLargestValue(m_player->durationSeconds().value_or(0));
    renderTimes();
    renderVolume();
    leaveOutWhatDoesNotFit();
}

void PlayerControls::renderTimes()
{
    const double position = m_player->positionSeconds();
    m_position->showValue(position);
    const QString elapsed = formatDuration(position);
    if (m_elapsed->text() != elapsed)
        m_elapsed->setText(elapsed);

    const auto duration = m_player->durationSeconds();
    const QString length = formatDuration(duration.value_or(NAN));
    m_elapsed->setMinimumWidth(
        static_cast<int>(std::ceil(DigitText(length, m_elapsed->font()).width())));
    const QString minus(QChar(0x2212));
    // Rounded, so that both times change at once.
    const QString left = duration
        ? minus + formatDuration(std::max(std::round(*duration) - std::round(position), 0.0))
        : length;
    m_end->setTime(m_showsTimeLeft ? left : length, m_showsTimeLeft ? minus + length : length);
    m_end->setToolTip(m_showsTimeLeft ? tr("Show the length") : tr("Show the time left"));
}

void PlayerControls::renderVolume()
{
    const bool silent = m_player->isMuted() || m_player->volume() <= 0;
    if (silent)
        describe(*m_mute, u"speaker.slash.fill", tr("Unmute"));
    else
        describe(*m_mute, u"speaker.wave.2.fill", tr("Mute"));
    m_volume->showValue(silent ? 0 : m_player->volume());
}

bool PlayerControls::isInUse() const
{
    return underMouse() || m_position->isSliderDown() || m_volume->isSliderDown()
        || isAncestorOf(QApplication::focusWidget());
}

int PlayerControls::widthOver(int videoWidth)
{
    constexpr int margin = 14;
    constexpr double share = 0.7;
    constexpr int comfortable = 500;
    constexpr int longest = 820;
    const int preferred = std::max(static_cast<int>(videoWidth * share), comfortable);
    return std::max(std::min({preferred, videoWidth - 2 * margin, longest}), 0);
}

QSize PlayerControls::sizeHint() const
{
    return {widthOver(0), Theme::scaled(barHeight)};
}

bool PlayerControls::eventFilter(QObject *watched, QEvent *event)
{
    // QAbstractButton would move the focus with arrow keys.
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key >= Qt::Key_Left && key <= Qt::Key_Down) {
            event->ignore();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void PlayerControls::mousePressEvent(QMouseEvent *event)
{
    // Keep the press from the video below.
    event->accept();
}

void PlayerControls::resizeEvent(QResizeEvent *)
{
    leaveOutWhatDoesNotFit();
}

void PlayerControls::leaveOutWhatDoesNotFit()
{
    struct Part {
        QWidget *widget;
        int width;
    };
    // In the order in which they are left out.
    const std::array parts{Part{m_volume, volumeWidth}, Part{m_end, m_end->sizeHint().width()},
                           Part{m_mute, m_mute->sizeHint().width()},
                           Part{m_elapsed, m_elapsed->minimumWidth()}};
    constexpr int shortestPosition = 80;
    int needed = 2 * sidePadding + m_play->sizeHint().width() + spacing + shortestPosition;
    if (m_fullScreen != FullScreen::None)
        needed += spacing + m_toggleFullScreen->sizeHint().width();
    for (const Part &part : parts)
        needed += spacing + part.width;
    for (const Part &part : parts) {
        const bool fits = needed <= width();
        part.widget->setVisible(fits);
        if (!fits)
            needed -= spacing + part.width;
    }
}

void PlayerControls::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    paintBox(painter, rect(), barRadius, Theme::current().color(Theme::Color::VideoBar));
}

} // namespace clipwren
