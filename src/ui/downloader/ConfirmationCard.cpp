#include "ui/downloader/ConfirmationCard.h"

#include "core/text/Duration.h"
#include "ui/components/Button.h"
#include "ui/components/Divider.h"
#include "ui/components/ElidedLabel.h"
#include "ui/components/IconView.h"
#include "ui/components/ThumbnailView.h"
#include "ui/components/WrappedLabel.h"
#include "workflow/download/DownloaderView.h"

#include <QHBoxLayout>

namespace clipwren {

namespace {

constexpr QSize thumbnailSize(200, 112);
constexpr int padding = 17;
constexpr int titleLines = 3;

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

ConfirmationCard::ConfirmationCard(DownloaderView &view, QWidget *parent)
    : Card(parent), m_view(view), m_thumbnail(new ThumbnailView)
{
    m_thumbnail->setFixedSize(thumbnailSize);
    auto *top = new QHBoxLayout;
    top->setSpacing(16);
    top->addWidget(m_thumbnail, 0, Qt::AlignTop);
    top->addLayout(makeFacts(), 1);

    auto *reject = new Button(Button::Style::Bordered, tr("Not this one"));
    connect(reject, &Button::clicked, &m_view, &DownloaderView::resetAll);
    m_continue = new Button(Button::Style::Prominent, tr("Continue"), u"arrow.right.circle.fill");
    connect(m_continue, &Button::clicked, &m_view, &DownloaderView::confirm);
    auto *bottom = new QHBoxLayout;
    bottom->setSpacing(8);
    bottom->addWidget(new ElidedLabel(Theme::TextStyle::Callout, Theme::Color::Secondary,
                                      tr("Is this the right video?")),
                      1);
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
    m_title = new WrappedLabel(Theme::TextStyle::Headline, Theme::Color::Text, titleLines);
    m_uploader = new ElidedLabel(Theme::TextStyle::Caption, Theme::Color::Secondary);
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
    m_uploader->setFullText(info.uploader.value_or(QString()));
    m_uploaderRow->setVisible(info.uploader.has_value());
    m_duration->setText(info.duration ? formatDuration(*info.duration) : QString());
    m_durationRow->setVisible(info.duration.has_value());
}

} // namespace clipwren
