#pragma once

#include <QWidget>

namespace clipwren::gallery {

/// The window as it looks with its screens, over a library of a few made-up videos.
QWidget *setupPage();
QWidget *detailPage();
QWidget *missingFilePage();
QWidget *historyPage();
QWidget *emptyPage();
QWidget *confirmationPage();

} // namespace clipwren::gallery
