#pragma once

#include <QSize>
#include <QString>
#include <QWidget>

#include <functional>

namespace clipwren::gallery {

/// One state of the downloader screen in one size.
struct DownloaderShot {
    QString name;
    std::function<QWidget *()> make; ///< waits until the screen is in that state
};

/// The downloader screen in every phase and with its failures, wide and as narrow as it gets.
QList<DownloaderShot> downloaderShots();

} // namespace clipwren::gallery
