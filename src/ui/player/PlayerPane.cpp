#include "ui/player/PlayerPane.h"

#include "platform/media/VideoOutput.h"
#include "ui/components/FocusRing.h"
#include "ui/components/Icon.h"
#include "ui/components/Label.h"
#include "ui/components/Painting.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>

namespace clipwren {

namespace {

constexpr int controlsMargin = 14; // below the controls
constexpr int failureMargin = 24;
constexpr int warningSize = 22;

bool isPlainKey(const QKeyEvent &event)
{
    return (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
}

bool isOurKey(int key)
{
    switch (key) {
    case Qt::Key_Space:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_M:
    case Qt::Key_F:
        return true;
    default:
        return false;
    }
}

} // namespace

PlayerPane::PlayerPane(const Options &options, QWidget *parent)
    : QWidget(parent), m_options(options),
      m_failureText(new Label(Label::Mode::Paragraph, Theme::TextStyle::Callout,
                              Theme::Color::OnVideoSecondary)),
      m_failure(makeFailure()), m_controls(new PlayerControls(options.fullScreen, this))
{
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Video"));
    m_failure->hide();
    m_controls->hide();

    m_rest.setSingleShot(true);
    connect(&m_rest, &QTimer::timeout, this, &PlayerPane::hideControlsAtRest);
    connect(m_controls, &PlayerControls::fullScreenToggled, this, &PlayerPane::fullScreenToggled);
    connect(m_controls, &PlayerControls::jumped, this, &PlayerPane::jumped);
    if (options.fullScreen != PlayerControls::FullScreen::CanLeave)
        FocusRing::install(this, options.radius);
}

// Detach: the player may be destroyed after this pane.
PlayerPane::~PlayerPane()
{
    setPlayer(nullptr);
}

QWidget *PlayerPane::makeFailure()
{
    auto *const failure = new QWidget(this);
    failure->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_failureText->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    auto *const column = new QVBoxLayout(failure);
    column->setContentsMargins(failureMargin, failureMargin, failureMargin, failureMargin);
    column->setSpacing(8);
    column->addStretch(1);
    column->addWidget(
        new IconView(u"exclamationmark.triangle.fill", warningSize, Theme::Color::OrangeIcon), 0,
        Qt::AlignHCenter);
    column->addWidget(m_failureText);
    column->addStretch(1);
    return failure;
}

void PlayerPane::setPlayer(MediaPlayer *player)
{
    if (m_player)
        m_player->disconnect(this);
    if (m_output) {
        m_output->disconnect(this);
        m_output->setSize({});
    }
    m_player = player;
    m_output = player ? player->videoOutput() : nullptr;
    m_controls->setPlayer(player);
    if (m_output)
        connect(m_output, &VideoOutput::pictureChanged, this, qOverload<>(&QWidget::update));
    if (player) {
        connect(player, &QObject::destroyed, this, [this] { setPlayer(nullptr); });
        connect(player, &MediaPlayer::playingChanged, this, &PlayerPane::followPlayer);
        connect(player, &MediaPlayer::statusChanged, this, &PlayerPane::followPlayer);
    }
    followPlayer();
    update();
}

void PlayerPane::followPlayer()
{
    const bool failed = m_player && m_player->status() == MediaPlayer::Status::Failed;
    if (failed)
        m_failureText->setText(m_player->failure());
    m_failure->setVisible(failed);
    wakeControls();
}

void PlayerPane::wakeControls()
{
    unsetCursor();
    const auto status = m_player ? m_player->status() : MediaPlayer::Status::Empty;
    m_controls->setVisible(status == MediaPlayer::Status::Loading
                           || status == MediaPlayer::Status::Ready);
    if (m_player && m_player->isPlaying())
        m_rest.start(m_options.hideControlsAfter);
    else
        m_rest.stop();
}

void PlayerPane::hideControlsAtRest()
{
    if (m_controls->isInUse()) {
        m_rest.start(m_options.hideControlsAfter);
        return;
    }
    m_controls->hide();
    if (m_options.fullScreen == PlayerControls::FullScreen::CanLeave)
        setCursor(Qt::BlankCursor);
}

bool PlayerPane::event(QEvent *event)
{
    // While the video has the focus, its keys come before shortcuts of the window.
    if (event->type() == QEvent::ShortcutOverride) {
        const auto *const key = static_cast<QKeyEvent *>(event);
        if (isPlainKey(*key) && isOurKey(key->key()))
            event->accept();
    }
    return QWidget::event(event);
}

void PlayerPane::keyPressEvent(QKeyEvent *event)
{
    if (!isPlainKey(*event) || !m_controls->pressKey(event->key(), event->isAutoRepeat())) {
        QWidget::keyPressEvent(event);
        return;
    }
    wakeControls();
}

void PlayerPane::mouseMoveEvent(QMouseEvent *event)
{
    wakeControls();
    if (!event->buttons().testFlag(Qt::LeftButton) || !m_pressed
        || (event->pos() - *m_pressed).manhattanLength() < QApplication::startDragDistance())
        return;
    m_pressed.reset();
    Q_EMIT dragged();
}

void PlayerPane::mousePressEvent(QMouseEvent *event)
{
    event->accept();
    m_pressed = event->pos();
    wakeControls();
}

void PlayerPane::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton
        && m_options.fullScreen != PlayerControls::FullScreen::None)
        Q_EMIT fullScreenToggled();
}

void PlayerPane::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event);
    wakeControls();
}

void PlayerPane::resizeEvent(QResizeEvent *)
{
    m_failure->setGeometry(rect());
    const QSize size(PlayerControls::widthOver(width()), m_controls->sizeHint().height());
    m_controls->setGeometry((width() - size.width()) / 2, height() - controlsMargin - size.height(),
                            size.width(), size.height());
}

void PlayerPane::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    if (m_output)
        m_output->setSize({});
}

void PlayerPane::closeEvent(QCloseEvent *event)
{
    QWidget::closeEvent(event);
    Q_EMIT fullScreenToggled();
}

void PlayerPane::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    paintPicture(painter);
    if (m_options.fullScreen == PlayerControls::FullScreen::CanLeave)
        return;
    constexpr double outlineWidth = 0.5;
    constexpr double inset = outlineWidth / 2;
    const QColor separator = Theme::current().color(Theme::Color::Separator);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(faded(separator, 0.5), outlineWidth));
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset),
                            m_options.radius - inset, m_options.radius - inset);
}

void PlayerPane::paintPicture(QPainter &painter)
{
    const double ratio = devicePixelRatioF();
    const QSize pixels = (QSizeF(size()) * ratio).toSize();
    QImage picture;
    if (m_output) {
        // Here every change of the size and of the screen is noticed.
        m_output->setSize(pixels);
        picture = m_output->picture();
    }
    QBrush brush(Theme::current().color(Theme::Color::Video));
    if (!picture.isNull()) {
        brush = QBrush(picture);
        // Until a picture of the new size arrives, the old one covers the pane.
        const double scale = std::max(double(pixels.width()) / picture.width(),
                                      double(pixels.height()) / picture.height())
            / ratio;
        const QSizeF covered = QSizeF(picture.size()) * scale;
        brush.setTransform(QTransform::fromTranslate((width() - covered.width()) / 2,
                                                     (height() - covered.height()) / 2)
                               .scale(scale, scale));
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(brush);
    painter.drawRoundedRect(rect(), m_options.radius, m_options.radius);
}

} // namespace clipwren
