#include "ui/downloader/VideoSummary.h"

#include "core/text/Duration.h"
#include "ui/components/ThumbnailView.h"
#include "ui/components/WrappedLabel.h"
#include "workflow/download/DownloaderView.h"

#include <QHBoxLayout>

namespace clipwren {

namespace {

constexpr QSize thumbnailSize(120, 68);
constexpr int padding = 12;
constexpr int titleLines = 2;

} // namespace

VideoSummary::VideoSummary(DownloaderView &view, QWidget *parent)
    : Card(parent), m_view(view), m_thumbnail(new ThumbnailView),
      m_title(new WrappedLabel(Theme::TextStyle::Subheadline, Theme::Color::Text, titleLines)),
      m_duration(new Label(Theme::TextStyle::CaptionDigits, Theme::Color::Secondary))
{
    m_thumbnail->setFixedSize(thumbnailSize);
    auto *texts = new QVBoxLayout;
    texts->setSpacing(4);
    texts->addStretch(1);
    texts->addWidget(m_title);
    texts->addWidget(m_duration);
    texts->addStretch(1);

    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(padding, padding, padding, padding);
    row->setSpacing(14);
    row->addWidget(m_thumbnail);
    row->addLayout(texts, 1);
}

void VideoSummary::render()
{
    const VideoInfo info = m_view.info().value_or(VideoInfo());
    m_thumbnail->setUrlString(info.thumbnail);
    m_title->setText(info.title.value_or(QString()));
    m_title->setVisible(info.title.has_value());
    m_duration->setText(info.duration ? formatDuration(*info.duration) : QString());
    m_duration->setVisible(info.duration.has_value());
}

} // namespace clipwren
