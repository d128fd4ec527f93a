#include "ui/downloader/PreviewPane.h"

#include "ui/components/Icon.h"
#include "ui/components/Label.h"
#include "ui/components/Painting.h"
#include "ui/components/Progress.h"
#include "ui/player/PlayerPane.h"
#include "workflow/download/DownloaderView.h"
#include "workflow/preview/PreviewPlayerController.h"

#include <QPainter>
#include <QShowEvent>
#include <QStackedLayout>
#include <QVBoxLayout>

namespace clipwren {

namespace {

constexpr int paneHeight = 220;
constexpr double radius = 12; // of the corners, in logical pixels

/// Widgets below each other in the middle of a page.
QWidget *centredPage(std::initializer_list<QWidget *> widgets)
{
    auto *page = new QWidget;
    auto *column = new QVBoxLayout(page);
    column->setContentsMargins(24, 12, 24, 12);
    column->setSpacing(10);
    column->addStretch(1);
    for (QWidget *widget : widgets)
        column->addWidget(widget, 0, Qt::AlignHCenter);
    column->addStretch(1);
    return page;
}

} // namespace

PreviewPane::PreviewPane(DownloaderView &view, QWidget *parent)
    : QWidget(parent), m_view(view), m_pages(new QStackedLayout(this)),
      m_nothing(centredPage({new IconView(u"play.rectangle", 28, Theme::Color::OnVideoSecondary)})),
      m_loading(makeLoading()),
      m_failureText(new Label(Label::Mode::Wrapped, Theme::TextStyle::Caption,
                              Theme::Color::OnVideoSecondary)),
      m_failure(makeFailure()), m_player(new PreviewPlayerView(m_view.preview()))
{
    setFixedHeight(paneHeight);
    m_pages->setContentsMargins(0, 0, 0, 0);
    for (QWidget *page : {m_nothing, m_loading, m_failure, static_cast<QWidget *>(m_player)})
        m_pages->addWidget(page);
}

QWidget *PreviewPane::makeLoading()
{
    return centredPage({new Spinner,
                        new Label(Theme::TextStyle::Caption, Theme::Color::OnVideoSecondary,
                                  tr("Loading preview…"))});
}

QWidget *PreviewPane::makeFailure()
{
    m_failureText->setAlignment(Qt::AlignHCenter);
    return centredPage(
        {new IconView(u"exclamationmark.triangle.fill", 22, Theme::Color::OrangeIcon),
         m_failureText});
}

void PreviewPane::render()
{
    const PreviewPlayerController &preview = m_view.preview();
    if (m_view.isPreviewLoading()) {
        m_pages->setCurrentWidget(m_loading);
    } else if (preview.player()) {
        m_pages->setCurrentWidget(m_player);
    } else if (m_view.previewURL() && preview.loadError()) {
        // Without a stream, the error belongs to an earlier video.
        m_failureText->setText(*preview.loadError());
        m_pages->setCurrentWidget(m_failure);
    } else {
        m_pages->setCurrentWidget(m_nothing);
    }
}

void PreviewPane::paintEvent(QPaintEvent *)
{
    const Theme &theme = Theme::current();
    QPainter painter(this);
    paintBox(painter, rect(), radius, theme.color(Theme::Color::Video),
             theme.color(Theme::Color::CardBorder));
}

// PreviewPlayerView

PreviewPlayerView::PreviewPlayerView(PreviewPlayerController &controller, QWidget *parent)
    : QWidget(parent), m_controller(controller), m_pane(new PlayerPane({.radius = radius}))
{
    auto *const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_pane);
    setFocusProxy(m_pane);
    connect(m_pane, &PlayerPane::jumped, &m_controller, &PreviewPlayerController::endRange);
}

PreviewPlayerView::~PreviewPlayerView()
{
    detach();
}

void PreviewPlayerView::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (event->spontaneous() || m_following)
        return;
    m_following =
        connect(&m_controller, &PreviewPlayerController::changed, this, &PreviewPlayerView::render);
    render();
}

void PreviewPlayerView::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    if (!event->spontaneous())
        detach();
}

void PreviewPlayerView::render()
{
    if (m_pane->player() != m_controller.player())
        m_pane->setPlayer(m_controller.player());
}

// Disconnect first: pausing makes the controller emit changed().
void PreviewPlayerView::detach()
{
    disconnect(m_following);
    m_following = {};
    MediaPlayer *const player = m_pane->player();
    m_pane->setPlayer(nullptr);
    if (player && player == m_controller.player())
        m_controller.pause();
}

} // namespace clipwren
