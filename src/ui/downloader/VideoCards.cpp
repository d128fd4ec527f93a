#include "ui/downloader/VideoCards.h"

#include "core/text/Duration.h"
#include "ui/components/Animation.h"
#include "ui/components/Button.h"
#include "ui/components/Card.h"
#include "ui/components/FlowRow.h"
#include "ui/components/Icon.h"
#include "ui/components/Label.h"
#include "ui/components/Progress.h"
#include "ui/components/ThumbnailView.h"
#include "workflow/download/DownloaderView.h"

#include <QHBoxLayout>

namespace clipwren {

namespace {

constexpr int tileSize = 38;
constexpr double statusSpring = 0.2;

QWidget *makeTile()
{
    auto *tile = new Card(Theme::Color::Quaternary, 8);
    tile->setFixedSize(tileSize, tileSize);
    auto *row = new QHBoxLayout(tile);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(new Spinner, 0, Qt::AlignCenter);
    return tile;
}

/// A fact about the video behind its symbol.
QWidget *factRow(Icon icon, Label *text)
{
    auto *box = new QWidget;
    auto *row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(6);
    row->addWidget(new IconView(icon, 14, Theme::Color::Secondary));
    row->addWidget(text, 1);
    return box;
}

} // namespace

FetchingCard::FetchingCard(DownloaderView &view, QWidget *parent)
    : Card(parent), m_view(view),
      m_status(new Label(Label::Mode::Elided, Theme::TextStyle::Caption, Theme::Color::Secondary))
{
    auto *statusBox = new QWidget;
    auto *statusColumn = new QVBoxLayout(statusBox);
    statusColumn->setContentsMargins(0, 0, 0, 0);
    statusColumn->addWidget(m_status);
    m_statusArea = new AnimatedHeight(statusBox);

    auto *texts = new QVBoxLayout;
    texts->setSpacing(2);
    texts->addStretch(1);
    texts->addWidget(new Label(Label::Mode::Wrapped, Theme::TextStyle::Label, Theme::Color::Text,
                               tr("Looking up video…")));
    texts->addWidget(m_statusArea);
    texts->addStretch(1);
    auto *cancel = new Button(Button::Style::Bordered, tr("Cancel"));
    connect(cancel, &Button::clicked, &m_view, &DownloaderView::cancelFetch);

    auto *state = new QHBoxLayout;
    state->setSpacing(14);
    state->addWidget(makeTile());
    state->addLayout(texts, 1);
    auto *row = new FlowRow(14, this);
    row->setContentsMargins(13, 13, 13, 13);
    row->addLayout(state);
    row->addWidget(cancel);
}

void FetchingCard::render()
{
    const QString status = m_view.fetchStatus();
    if (status != m_status->fullText())
        m_statusArea->change(statusSpring, [&] { m_status->setText(status); });
}

ConfirmationCard::ConfirmationCard(DownloaderView &view, QWidget *parent)
    : Card(parent), m_view(view), m_thumbnail(new ThumbnailView)
{
    constexpr int padding = 17;
    m_thumbnail->setFixedSize(200, 112);
    auto *top = new QHBoxLayout;
    top->setSpacing(16);
    top->addWidget(m_thumbnail, 0, Qt::AlignTop);
    top->addLayout(makeFacts(), 1);

    auto *reject = new Button(Button::Style::Bordered, tr("Not this one"));
    connect(reject, &Button::clicked, &m_view, &DownloaderView::resetAll);
    m_continue = new Button(Button::Style::Prominent, tr("Continue"), u"arrow.right.circle.fill");
    connect(m_continue, &Button::clicked, &m_view, &DownloaderView::confirm);
    auto *bottom = new FlowRow(8);
    bottom->addWidget(new Label(Label::Mode::Wrapped, Theme::TextStyle::Callout,
                                Theme::Color::Secondary, tr("Is this the right video?")));
    bottom->addWidget(reject);
    bottom->addWidget(m_continue);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(padding, padding, padding, padding);
    column->setSpacing(14);
    column->addLayout(top);
    column->addWidget(new Divider);
    column->addLayout(bottom);
}

QVBoxLayout *ConfirmationCard::makeFacts()
{
    m_title = new Label(Label::Mode::Wrapped, Theme::TextStyle::Headline, Theme::Color::Text);
    m_title->setMaximumLines(3);
    m_uploader = new Label(Label::Mode::Elided, Theme::TextStyle::Caption, Theme::Color::Secondary);
    m_uploaderRow = factRow(u"person.circle", m_uploader);
    m_duration = new Label(Theme::TextStyle::CaptionDigits, Theme::Color::Secondary);
    m_durationRow = factRow(u"clock", m_duration);
    auto *facts = new QVBoxLayout;
    facts->setSpacing(8);
    facts->addWidget(m_title);
    facts->addWidget(m_uploaderRow);
    facts->addWidget(m_durationRow);
    facts->addStretch(1);
    return facts;
}

void ConfirmationCard::render()
{
    const VideoInfo info = m_view.info().value_or(VideoInfo());
    m_thumbnail->setUrlString(info.thumbnail);
    m_title->setText(info.title.value_or(QString()));
    m_uploader->setText(info.uploader.value_or(QString()));
    m_uploaderRow->setVisible(info.uploader.has_value());
    m_duration->setText(info.duration ? formatDuration(*info.duration) : QString());
    m_durationRow->setVisible(info.duration.has_value());
}

VideoSummary::VideoSummary(DownloaderView &view, QWidget *parent)
    : Card(parent), m_view(view), m_thumbnail(new ThumbnailView),
      m_title(new Label(Label::Mode::Wrapped, Theme::TextStyle::Subheadline, Theme::Color::Text)),
      m_duration(new Label(Theme::TextStyle::CaptionDigits, Theme::Color::Secondary))
{
    constexpr int padding = 12;
    m_thumbnail->setFixedSize(120, 68);
    m_title->setMaximumLines(2);
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
