#include "ui/downloader/FetchingCard.h"

#include "ui/components/Button.h"
#include "ui/components/ElidedLabel.h"
#include "ui/components/Glide.h"
#include "ui/components/Spinner.h"
#include "workflow/download/DownloaderView.h"

#include <QHBoxLayout>

namespace clipwren {

namespace {

constexpr int tileSize = 38;
constexpr Spring statusSpring{0.2, 1};

QWidget *makeTile()
{
    auto *tile = new Card(Theme::Color::Quaternary, 8);
    tile->setFixedSize(tileSize, tileSize);
    auto *row = new QHBoxLayout(tile);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(new Spinner, 0, Qt::AlignCenter);
    return tile;
}

} // namespace

FetchingCard::FetchingCard(DownloaderView &view, QWidget *parent)
    : Card(parent), m_view(view),
      m_status(new ElidedLabel(Theme::TextStyle::Caption, Theme::Color::Secondary))
{
    auto *statusBox = new QWidget;
    auto *statusColumn = new QVBoxLayout(statusBox);
    statusColumn->setContentsMargins(0, 0, 0, 0);
    statusColumn->addWidget(m_status);
    m_statusGlide = new Glide(statusBox);

    auto *texts = new QVBoxLayout;
    texts->setSpacing(2);
    texts->addStretch(1);
    texts->addWidget(
        new ElidedLabel(Theme::TextStyle::Label, Theme::Color::Text, tr("Looking up video…")));
    texts->addWidget(m_statusGlide);
    texts->addStretch(1);
    auto *cancel = new Button(Button::Style::Bordered, tr("Cancel"));
    connect(cancel, &Button::clicked, &m_view, &DownloaderView::cancelFetch);

    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(13, 13, 13, 13);
    row->setSpacing(14);
    row->addWidget(makeTile());
    row->addLayout(texts, 1);
    row->addWidget(cancel);
}

void FetchingCard::render()
{
    const QString status = m_view.fetchStatus();
    if (status != m_status->fullText())
        m_statusGlide->change(statusSpring, [&] { m_status->setFullText(status); });
}

} // namespace clipwren
