#include "ui/downloader/SuccessCard.h"

#include "ui/components/Button.h"
#include "ui/components/ElidedLabel.h"
#include "ui/components/IconView.h"
#include "workflow/download/DownloaderView.h"

#include <QDir>
#include <QHBoxLayout>

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

SuccessCard::SuccessCard(DownloaderView &view, const QString &downloadFolder,
                         std::function<void()> reveal, QWidget *parent)
    : Card(parent)
{
    auto *place = new ElidedLabel(Theme::TextStyle::Caption, Theme::Color::Secondary,
                                  tr("Saved to %1").arg(shortPath(downloadFolder)));
    place->setElideMode(Qt::ElideMiddle);
    auto *texts = new QVBoxLayout;
    texts->setSpacing(2);
    texts->addWidget(
        new ElidedLabel(Theme::TextStyle::Strong, Theme::Color::Text, tr("Download complete")));
    texts->addWidget(place);

    auto *revealButton = new Button(Button::Style::Bordered, tr("Reveal in Finder"));
    connect(revealButton, &Button::clicked, this, std::move(reveal));
    auto *again = new Button(Button::Style::Prominent, tr("New download"));
    connect(again, &Button::clicked, &view, &DownloaderView::resetAll);

    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(13, 13, 13, 13);
    row->setSpacing(12);
    row->addWidget(new IconView(u"checkmark.circle.fill", 28, Theme::Color::Green));
    row->addLayout(texts, 1);
    row->addWidget(revealButton);
    row->addWidget(again);
}

} // namespace clipwren
