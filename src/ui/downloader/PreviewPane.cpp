#include "ui/downloader/PreviewPane.h"

#include "ui/components/IconView.h"
#include "ui/components/Painting.h"
#include "ui/components/Spinner.h"
#include "ui/components/WrappedLabel.h"
#include "ui/downloader/PreviewPlayerView.h"
#include "workflow/download/DownloaderView.h"

#include <QPainter>
#include <QStackedLayout>
#include <QVBoxLayout>

namespace clipwren {

namespace {

constexpr int paneHeight = 220;
constexpr qreal radius = 12;

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
      m_failureText(new WrappedLabel(Theme::TextStyle::Caption, Theme::Color::OnVideoSecondary)),
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
        // Without a stream of this video, the error is that of an earlier one.
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

} // namespace clipwren
