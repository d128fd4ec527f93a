#pragma once

#include <QWidget>

namespace clipwren::gallery {

/// Every kind of control in each of its states.
QWidget *controlsPage();
/// What is as wide as the column of cards, and a card.
QWidget *cardsPage();
/// The whole set of symbols, small and large.
QWidget *iconsPage();
QWidget *logPage();
/// The controls that float over a video, wide and narrow, playing and paused.
QWidget *videoPage();

} // namespace clipwren::gallery
