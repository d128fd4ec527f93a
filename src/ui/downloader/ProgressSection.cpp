#include "ui/downloader/ProgressSection.h"

#include "ui/components/Button.h"
#include "ui/components/ElidedLabel.h"
#include "ui/components/LinearProgress.h"
#include "workflow/download/DownloaderView.h"

#include <QVBoxLayout>

#include <algorithm>

namespace clipwren {

namespace {

QString percentage(double fraction)
{
    return QString::number(static_cast<int>(std::clamp(fraction, 0.0, 1.0) * 100)) + u'%';
}

} // namespace

ProgressSection::ProgressSection(DownloaderView &view, QWidget *parent)
    : QWidget(parent), m_view(view), m_heading(new ElidedLabel(Theme::TextStyle::Emphasis)),
      m_percentage(new Label(Theme::TextStyle::BodyDigits, Theme::Color::Secondary)),
      m_bar(new LinearProgress),
      m_status(new ElidedLabel(Theme::TextStyle::Caption, Theme::Color::Secondary))
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
    // Without a status there is nothing to read, but "Cancel" stays where it is.
    bottom->addWidget(m_status, 1);
    bottom->addWidget(cancel);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(8);
    column->addLayout(top);
    column->addWidget(m_bar);
    column->addLayout(bottom);
}

void ProgressSection::render()
{
    m_heading->setFullText(m_view.phaseLabel());
    const DownloadProgress &progress = m_view.progress();
    m_percentage->setText(percentage(progress.fraction));
    m_bar->setFraction(progress.fraction);
    m_status->setFullText(progress.status);
}

} // namespace clipwren
