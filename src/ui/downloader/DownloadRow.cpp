#include "ui/downloader/DownloadRow.h"

#include "ui/components/Button.h"
#include "workflow/download/DownloaderView.h"

#include <QHBoxLayout>

namespace clipwren {

DownloadRow::DownloadRow(DownloaderView &view, QWidget *parent) : QWidget(parent)
{
    auto *download =
        new Button(Button::Style::Prominent, tr("Download"), u"arrow.down.circle.fill");
    download->setSize(Button::Size::Large);
    download->setToolTip(tr("Start the download (Ctrl+Return)"));
    connect(download, &Button::clicked, &view, &DownloaderView::start);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addStretch(1);
    row->addWidget(download);
}

} // namespace clipwren
