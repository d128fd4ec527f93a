#include "ui/downloader/ProgressSection.h"

#include "ui/components/Button.h"
#include "ui/components/Card.h"
#include "ui/components/FlowRow.h"
#include "ui/components/Icon.h"
#include "ui/components/Label.h"
#include "ui/components/Progress.h"
#include "workflow/download/DownloaderView.h"

#include <QDir>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace clipwren {

namespace {

/// The path with the home folder as a tilde.
QString shortPath(const QString &path)
{
    const QString home = QDir::homePath();
    if (path == home || path.startsWith(home + u'/'))
        return u'~' + path.mid(home.size());
    return path;
}

} // namespace

ProgressSection::ProgressSection(DownloaderView &view, QWidget *parent)
    : QWidget(parent), m_view(view),
      m_heading(new Label(Label::Mode::Elided, Theme::TextStyle::Emphasis)),
      m_percentage(new Label(Theme::TextStyle::BodyDigits, Theme::Color::Secondary)),
      m_bar(new LinearProgress),
      m_status(new Label(Label::Mode::Elided, Theme::TextStyle::Caption, Theme::Color::Secondary))
{
    auto *top = new QHBoxLayout;
    top->addWidget(m_heading, 1);
    top->addWidget(m_percentage);
    auto *cancel = new Button(Button::Style::Bordered, tr("Cancel"));
    cancel->setSize(Button::Size::Small);
    cancel->setDestructive(true);
    connect(cancel, &Button::clicked, &m_view, &DownloaderView::cancelDownload);
    auto *bottom = new QHBoxLayout;
    bottom->setSpacing(10);
    // Stays visible when empty, so that "Cancel" does not move.
    bottom->addWidget(m_status, 1);
    bottom->addWidget(cancel);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(8);
    column->addLayout(top);
    column->addWidget(m_bar);
    column->addLayout(bottom);
}

QString ProgressSection::percentage() const
{
    return QString::number(static_cast<int>(std::clamp(m_view.downloadProgress(), 0.0, 1.0) * 100))
        + u'%';
}

void ProgressSection::render()
{
    m_heading->setText(m_view.phaseLabel());
    const DownloadProgress &progress = m_view.progress();
    m_percentage->setText(percentage());
    m_bar->setFraction(progress.fraction);
    m_status->setText(progress.status);
}

QWidget *makeSuccessCard(DownloaderView &view, const QString &downloadFolder,
                         std::function<void()> reveal)
{
    auto *card = new Card;
    auto *place = new Label(Label::Mode::Elided, Theme::TextStyle::Caption, Theme::Color::Secondary,
                            ProgressSection::tr("Saved to %1").arg(shortPath(downloadFolder)));
    place->setElideMode(Qt::ElideMiddle);
    auto *texts = new QVBoxLayout;
    texts->setSpacing(2);
    texts->addWidget(new Label(Label::Mode::Elided, Theme::TextStyle::Strong, Theme::Color::Text,
                               ProgressSection::tr("Download complete")));
    texts->addWidget(place);

    auto *revealButton =
        new Button(Button::Style::Bordered, ProgressSection::tr("Reveal in Finder"));
    QObject::connect(revealButton, &Button::clicked, card, std::move(reveal));
    auto *again = new Button(Button::Style::Prominent, ProgressSection::tr("New download"));
    QObject::connect(again, &Button::clicked, &view, &DownloaderView::resetAll);

    auto *message = new QHBoxLayout;
    message->setSpacing(12);
    message->addWidget(new IconView(u"checkmark.circle.fill", 28, Theme::Color::Green));
    message->addLayout(texts, 1);
    auto *row = new FlowRow(12, card);
    row->setContentsMargins(13, 13, 13, 13);
    row->addLayout(message);
    row->addWidget(revealButton);
    row->addWidget(again);
    return card;
}

} // namespace clipwren
