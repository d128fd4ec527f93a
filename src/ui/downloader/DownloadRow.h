#pragma once

#include <QWidget>

namespace clipwren {

class DownloaderView;

/// Starts the download.
class DownloadRow : public QWidget {
    Q_OBJECT
public:
    explicit DownloadRow(DownloaderView &view, QWidget *parent = nullptr);
};

} // namespace clipwren
